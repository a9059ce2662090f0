#include "symbkds/resolve/CSymbKorvaAnalyser.h"

#include <algorithm>

namespace {

CString Text(std::string_view part)
{
    return CString(part.data(), static_cast<int>(part.size()));
}

// The text from `start` on; empty beyond its end.
std::string_view From(std::string_view text, std::size_t start)
{
    return text.substr(std::min(start, text.size()));
}

} // namespace

CSymbKorvaAnalysedItem::~CSymbKorvaAnalysedItem() = default;

CSymbKorvaAnalyser::~CSymbKorvaAnalyser() = default;

bool CSymbKorvaAnalyser::Analyse(CString& path, int level)
{
    std::string_view rest = path.View();
    const bool leadingDot = rest.starts_with('.') && level < kMaxSteps;
    bool accepted = true;
    for (int step = level; accepted && !rest.empty(); ++step) {
        if (step >= kMaxSteps) {
            accepted = false;
            break;
        }
        lastIndex = step;
        if (rest.starts_with('.'))
            rest.remove_prefix(1);
        accepted = AnalyseStep(rest, items[static_cast<std::size_t>(step)]);
    }
    if (!accepted && level == 0)
        lastIndex = 0;
    if (leadingDot)
        path = path.Mid(1);
    return accepted;
}

bool CSymbKorvaAnalyser::AnalyseStep(std::string_view& rest, CSymbKorvaAnalysedItem& item)
{
    if (rest.starts_with('['))
        return AnalyseIndexStep(rest, item);
    const std::size_t end = rest.find_first_of("[.");
    const std::string_view head = rest.substr(0, end);
    if (end == std::string_view::npos) {
        item.hasNumber = IsNumberFrom(rest, 0);
        item.name = Text(head);
        if (item.hasNumber)
            item.index = item.name;
        rest = {};
        return true;
    }
    if (rest[end] == '.') {
        item.name = Text(head);
        item.hasNumber = IsNumberFrom(rest, end + 1);
        if (item.hasNumber)
            item.index = Text(From(rest, end + 1));
        rest = item.hasNumber ? std::string_view() : From(rest, end + 1);
        return true;
    }
    std::size_t length = 0;
    if (!IsIndexList(From(rest, end + 1), length))
        return false;
    item.name = Text(head);
    rest = From(rest, end); // the bracket opens the next step
    return true;
}

bool CSymbKorvaAnalyser::AnalyseIndexStep(std::string_view& rest, CSymbKorvaAnalysedItem& item)
{
    const std::string_view inside = rest.substr(1);
    const std::string_view head = inside.substr(0, inside.find_first_of("[.]"));
    std::size_t length = 0;
    if (!IsIndexList(head, length))
        return false;
    item.name.Empty();
    item.index = Text(head);
    // The bracket itself and the closing one, which is not looked at.
    rest = From(rest, head.size() + 2);
    return true;
}

bool CSymbKorvaAnalyser::GetItemName(int item, CString& name) const
{
    const bool inside = item >= 0 && item <= lastIndex;
    name = inside ? GetItem(item).name : CString();
    return inside;
}

bool CSymbKorvaAnalyser::IsNumberFrom(std::string_view text, std::size_t start)
{
    return From(text, start).find_first_not_of("-0123456789") == std::string_view::npos;
}

bool CSymbKorvaAnalyser::IsIndexList(std::string_view text, std::size_t& length)
{
    const std::string_view list = text.substr(0, text.find(']'));
    if (list.find_first_not_of("-0123456789,.") != std::string_view::npos)
        return false;
    length = list.size();
    return true;
}
