#include "symbhost/commands/RowFilter.h"

#include "platform/mfc/UpperCase.h"

#include <algorithm>

namespace {

bool SameInAnyCase(char a, char b)
{
    return Upper(a) == Upper(b);
}

bool Holds(std::string_view text, std::string_view part)
{
    return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(), SameInAnyCase) != text.end();
}

// Takes the first character off `text`, which is UTF-8 and not empty.
void DropCharacter(std::string_view& text)
{
    do
        text.remove_prefix(1);
    while (!text.empty() && (static_cast<unsigned char>(text.front()) & 0xC0U) == 0x80);
}

} // namespace

bool MatchesGlob(std::string_view text, std::string_view glob)
{
    // Where to go on when what follows the last star does not fit: one character further on.
    std::string_view retryText;
    std::optional<std::string_view> retryGlob;
    while (!text.empty()) {
        if (glob.starts_with('*')) {
            glob.remove_prefix(1);
            retryGlob = glob;
            retryText = text;
        } else if (glob.starts_with('?')) {
            glob.remove_prefix(1);
            DropCharacter(text);
        } else if (!glob.empty() && SameInAnyCase(glob.front(), text.front())) {
            glob.remove_prefix(1);
            text.remove_prefix(1);
        } else if (retryGlob) {
            DropCharacter(retryText);
            text = retryText;
            glob = *retryGlob;
        } else {
            return false;
        }
    }
    return glob.find_first_not_of('*') == std::string_view::npos;
}

bool RowFilter::Accepts(const Row& row) const
{
    return (!name || MatchesGlob(row.name, *name)) &&
           (!type || std::ranges::equal(row.typeName, *type, SameInAnyCase)) &&
           (!comment || Holds(row.comment, *comment)) && (!customer || Holds(row.customerString, *customer));
}
