#include "support/FakeObject.h"

#include <exception>
#include <stdexcept>

namespace {

class CTextlessException : public std::exception
{
public:
    const char* what() const noexcept override { return nullptr; }
};

[[noreturn]] void Throw(const Fault& fault)
{
    if (fault.kind == Fault::Kind::kStandard)
        throw std::runtime_error(fault.text);
    if (fault.kind == Fault::Kind::kWithoutText)
        throw CTextlessException();
    throw 1;
}

} // namespace

void AppendTo(std::string& joined, const std::string& text)
{
    joined += (joined.empty() ? "" : ", ") + text;
}

std::optional<Fault> FakeState::Enter(const std::string& call)
{
    std::optional<Fault> applied;
    std::function<void(const std::string&)> watch;
    {
        std::lock_guard lock(guard);
        AppendTo(calls, call);
        watch = watcher;
        for (Rule& rule : rules) {
            if (call.starts_with(rule.call) && (++rule.seen == rule.occurrence || rule.occurrence == 0))
                applied = rule.fault;
        }
    }
    if (watch)
        watch(call);
    if (applied && applied->kind >= Fault::Kind::kStandard)
        Throw(*applied);
    return applied;
}
