#pragma once

#include "platform/mfc/CString.h"

#include <array>

// One step of a path: a name, an index, or a name with a bit number.
class CSymbKorvaAnalysedItem
{
public:
    CSymbKorvaAnalysedItem() = default;
    CSymbKorvaAnalysedItem(const CSymbKorvaAnalysedItem&) = delete;
    CSymbKorvaAnalysedItem& operator=(const CSymbKorvaAnalysedItem&) = delete;
    virtual ~CSymbKorvaAnalysedItem();

    CString name;           // as written; empty for an index step
    CString index;          // the text between the brackets, the bit number, or the number that is the whole step
    bool hasNumber = false; // the step carries a bit number or is itself a number
};

// The steps of a symbol path such as MOTOR1.SPEED or TAB[3].X.
//
// Built on the stack for one request and used once; it looks nothing up, so a
// path that analyses well may still name nothing. An index is a step of its
// own. A bit number belongs to the named step in front of it; behind an index
// it is a step of its own, whose name and index text are the number.
class CSymbKorvaAnalyser
{
public:
    static constexpr int kMaxSteps = 16;

    CSymbKorvaAnalyser() = default;
    CSymbKorvaAnalyser(const CSymbKorvaAnalyser&) = delete;
    CSymbKorvaAnalyser& operator=(const CSymbKorvaAnalyser&) = delete;
    virtual ~CSymbKorvaAnalyser();

    // Splits `path` into its steps, the first of which becomes item `level`.
    // False when there are more than kMaxSteps or when an index holds anything but numbers; the
    // items mean nothing then. Takes a leading dot off the caller's text.
    bool Analyse(CString& path, int level);

    // The name of a step; false and an empty text outside the path.
    bool GetItemName(int item, CString& name) const;

    // Index of the last step; 0 for a path of one step, for none, and after a failure.
    int GetLastIndex() const { return lastIndex; }
    const CSymbKorvaAnalysedItem& GetItem(int item) const { return items[static_cast<std::size_t>(item)]; }
    const CSymbKorvaAnalysedItem& GetLastItem() const { return GetItem(lastIndex); }

    // Whether a name ends in front of this character.
    static constexpr bool EndsName(char c) { return c == '[' || c == '.'; }
    // Whether the text from `start` on is made of digits and minus signs; nothing is too.
    static bool IsNumberFrom(std::string_view text, std::size_t start);
    // Whether the text up to its first "]" is made of digits, "-", "," and "."; `length` is that of this part then.
    static bool IsIndexList(std::string_view text, std::size_t& length);

private:
    // Analyses the step at the start of `rest`, the rest of `path`, and takes it off.
    static bool AnalyseStep(const CString& path, std::string_view& rest, CSymbKorvaAnalysedItem& item);
    static bool AnalyseIndexStep(std::string_view& rest, CSymbKorvaAnalysedItem& item);

    int lastIndex = 0;
    std::array<CSymbKorvaAnalysedItem, kMaxSteps> items;
};
