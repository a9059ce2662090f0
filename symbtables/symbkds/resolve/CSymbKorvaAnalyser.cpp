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

// Loops instead of find_first_of, which calls a function for each character.

constexpr bool IsNumberCharacter(char c)
{
    return c == '-' || (c >= '0' && c <= '9');
}

constexpr bool IsListCharacter(char c)
{
    return IsNumberCharacter(c) || c == ',' || c == '.';
}

constexpr bool EndsIndex(char c)
{
    return CSymbKorvaAnalyser::EndsName(c) || c == ']';
}

// Position of the first character that `ends` accepts; npos when there is none.
template <class Ends>
std::size_t FindEnd(std::string_view text, Ends ends)
{
    const auto* const found = std::ranges::find_if(text, ends);
    return found == text.end() ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
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
        accepted = AnalyseStep(path, rest, items[static_cast<std::size_t>(step)]);
    }
    if (!accepted && level == 0)
        lastIndex = 0;
    if (leadingDot)
        path = path.Mid(1);
    return accepted;
}

bool CSymbKorvaAnalyser::AnalyseStep(const CString& path, std::string_view& rest, CSymbKorvaAnalysedItem& item)
{
    if (rest.starts_with('['))
        return AnalyseIndexStep(rest, item);
    const std::size_t end = FindEnd(rest, EndsName);
    const std::string_view head = rest.substr(0, end);
    if (end == std::string_view::npos) {
        item.hasNumber = IsNumberFrom(rest, 0);
        const bool isWholePath = rest.size() == path.View().size();
        item.name = isWholePath ? path : Text(head); // a plain name shares the text
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
    const std::string_view head = inside.substr(0, FindEnd(inside, EndsIndex));
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
    return std::ranges::all_of(From(text, start), IsNumberCharacter);
}

bool CSymbKorvaAnalyser::IsIndexList(std::string_view text, std::size_t& length)
{
    const std::string_view list = text.substr(0, text.find(']'));
    if (!std::ranges::all_of(list, IsListCharacter))
        return false;
    length = list.size();
    return true;
}
