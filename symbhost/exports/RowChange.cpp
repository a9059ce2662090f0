#include "symbhost/exports/RowChange.h"

#include "platform/mfc/UpperCase.h"
#include "symbhost/Text.h"
#include "symbhost/exports/Place.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 9> kWords = {"added",  "removed", "moved",  "resized", "retyped",
                                                    "access", "text",    "served", "unserved"};

// Places and types that both rows know.
unsigned ChangedFacts(const Row& before, const Row& after)
{
    const bool areServed = before.IsServed() && after.IsServed();
    unsigned changes = 0;
    const auto note = [&changes](Change change, bool isDifferent) { changes |= isDifferent ? change : 0U; };
    note(kMoved, before.block != after.block || before.offset != after.offset);
    note(kResized, before.size != after.size);
    note(kRetyped, !IsSameName(before.typeName, after.typeName));
    note(kAccess, AccessText(before.accessRights) != AccessText(after.accessRights));
    note(kText, before.address != after.address || before.comment != after.comment ||
                    before.customerString != after.customerString);
    if (areServed) {
        note(kMoved,
             before.relativeOffset != after.relativeOffset || (before.isBit && after.isBit && before.bit != after.bit));
        note(kResized, before.relativeSize != after.relativeSize);
        note(kRetyped, before.typeCode != after.typeCode);
    }
    return changes;
}

void AppendPair(std::string& text, const std::string& what, std::string_view before, std::string_view after)
{
    if (before != after)
        text += (text.empty() ? "" : ", ") + what + std::string(before) + " -> " + std::string(after);
}

void AppendTexts(std::string& text, const std::string& what, std::string_view before, std::string_view after)
{
    if (before != after)
        AppendPair(text, what, '"' + std::string(before) + '"', '"' + std::string(after) + '"');
}

} // namespace

bool IsSameName(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, Upper, Upper);
}

unsigned ChangesBetween(const Row& before, const Row& after)
{
    const bool areKnown = before.known != Row::Known::Nothing && after.known != Row::Known::Nothing;
    unsigned changes = areKnown ? ChangedFacts(before, after) : 0;
    if (before.IsServed() != after.IsServed())
        changes |= after.IsServed() ? kServed : kUnserved;
    return changes;
}

std::vector<std::string> ChangeWords(unsigned changes)
{
    std::vector<std::string> words;
    for (std::size_t bit = 0; bit < kWords.size(); ++bit)
        if ((changes >> bit & 1U) != 0)
            words.emplace_back(kWords[bit]);
    return words;
}

std::optional<Change> ChangeOf(std::string_view word)
{
    const auto* const found = std::ranges::find(kWords, word);
    return found == kWords.end() ? std::nullopt : std::optional(static_cast<Change>(1U << (found - kWords.begin())));
}

std::string ChangeText(const Row& before, const Row& after, unsigned changes)
{
    std::string text;
    const auto appendNumbers = [&text](const char* what, std::uint32_t first, std::uint32_t second) {
        AppendPair(text, what, std::to_string(first), std::to_string(second));
    };
    const bool areServed = before.IsServed() && after.IsServed();
    if (changes & kMoved) {
        AppendPair(text, "", PlaceText(before), PlaceText(after));
        if (PlaceText(before) == PlaceText(after)) { // the parts of its sum changed, or a bit that no word has
            appendNumbers("offset ", before.offset, after.offset);
            appendNumbers("relative offset ", before.relativeOffset, after.relativeOffset);
            appendNumbers("bit ", before.bit, after.bit);
        }
    }
    if (changes & kResized) {
        appendNumbers("size ", before.size, after.size);
        if (areServed)
            appendNumbers("relative size ", before.relativeSize, after.relativeSize);
    }
    if (changes & kRetyped && !IsSameName(before.typeName, after.typeName))
        AppendPair(text, "", before.typeName, after.typeName);
    else if (changes & kRetyped)
        AppendPair(text, "type code ", HexText(before.typeCode), HexText(after.typeCode));
    if (changes & kAccess)
        AppendPair(text, "access ", AccessText(before.accessRights), AccessText(after.accessRights));
    if (changes & kText) {
        AppendTexts(text, "address ", before.address, after.address);
        AppendTexts(text, "comment ", before.comment, after.comment);
        AppendTexts(text, "customer string ", before.customerString, after.customerString);
    }
    if (changes & kServed)
        text += text.empty() ? "served" : ", served";
    if (changes & kUnserved)
        text += (text.empty() ? "not served: " : ", not served: ") + std::string(ReasonCode(after.reason));
    return text;
}
