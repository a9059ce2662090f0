// What the objects of the fake component have in common.
#pragma once

#include "platform/com/Unknown.h"
#include "support/ExportBuilder.h"
#include "support/Fault.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Appends to a list joined by ", ".
void AppendTo(std::string& joined, const std::string& text);

// The tree and the books, shared by all objects of one fake component.
struct FakeState
{
    struct Rule
    {
        std::string call;
        int occurrence; // of the call that fails, from 1; 0: each
        Fault fault;
        int seen = 0;
    };

    ExportNode tree;
    std::atomic<int> living = 0;
    std::mutex guard; // of the rest
    std::vector<Rule> rules;
    std::string calls;
    std::string releases;
    std::function<void(const std::string&)> watcher;

    // Records a call; the rule that applies to it, if any. Throws when the rule says so.
    std::optional<Fault> Enter(const std::string& call);
};

using FakeStatePtr = std::shared_ptr<FakeState>;

// Carries a call out: `deliver` fills the out argument and returns the result.
template <class Out, class Deliver>
HRESULT Answer(FakeState& state, const std::string& call, Out* out, Deliver deliver)
{
    *out = Out{};
    std::optional<Fault> fault = state.Enter(call);
    if (fault && fault->kind == Fault::Kind::kResult)
        return fault->result;
    HRESULT result = deliver();
    return fault ? fault->result : result;
}

// The reference count and the place of an object in the books.
template <class Interface>
class CFakeObject : public Interface
{
public:
    CFakeObject(FakeStatePtr shared, std::string name) : state(std::move(shared)), label(std::move(name))
    {
        ++state->living;
    }
    CFakeObject(const CFakeObject&) = delete;
    CFakeObject& operator=(const CFakeObject&) = delete;
    virtual ~CFakeObject()
    {
        --state->living;
        std::lock_guard lock(state->guard);
        AppendTo(state->releases, label);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown ? this : nullptr;
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        ULONG left = --references;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    FakeStatePtr state;
    std::string label;

private:
    std::atomic<ULONG> references = 1;
};
