// A path's text and the steps it is split into.
#include "support/Split.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// "NAME" or "[index]" for each step, "#number" behind one with a bit number; "refused" for a path that is not accepted.
std::string ShowSteps(std::string text)
{
    CString path(text.c_str());
    CSymbKorvaAnalyser analyser;
    if (!analyser.Analyse(path, 0))
        return analyser.GetLastIndex() == 0 ? "refused" : "refused, but steps are left";
    std::string steps;
    for (int i = 0; i <= analyser.GetLastIndex(); ++i) {
        const CSymbKorvaAnalysedItem& item = analyser.GetItem(i);
        std::string name(item.name.View());
        std::string index(item.index.View());
        steps += i > 0 ? " " : "";
        if (item.hasNumber)
            steps += name + "#" + index;
        else if (!name.empty())
            steps += name + (index.empty() ? "" : " with a stray index " + index);
        else
            steps += "[" + index + "]";
    }
    return steps;
}

std::string Repeat(const std::string& part, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += part;
    return text;
}

struct PathCase
{
    const char* paths; // several between bars
    const char* steps;
};

const PathCase kPaths[] = {
    {"Var.mEmBeR", "Var mEmBeR"}, // names keep their case
    {"VAR.member[3].sub[1,2].5", "VAR member [3] sub [1,2] 5#5"},
    // An index is a step of its own; the closing bracket is not looked at: the next step begins two characters on.
    {"VAR[3]|VAR[3", "VAR [3]"},
    {"VAR[1][2]", "VAR [1] [2]"},
    {"VAR[1,2]", "VAR [1,2]"},
    {"VAR[-1]", "VAR [-1]"},
    {"VAR[]", "VAR []"},
    {"[1]|.[1]", "[1]"},
    {"[", "[]"},
    {"VAR[3]x", "VAR [3] x"},
    {"VAR[3]5", "VAR [3] 5#5"},
    {"VAR[3]]", "VAR [3] ]"},
    {"VAR[3.5]", "VAR [3] 5]"},
    {"VAR[3][", "VAR [3] []"},
    {"[1[2]", "[1] 2]"},
    {"VAR[1][2[3]]", "VAR [1] [2] 3]]"},
    {"VAR]x", "VAR]x"},
    {"VAR[a]|VAR[1 ]|VAR[+1]|VAR[1][x]|VAR[[1]]|VAR[3.[4]", "refused"},
    // A bit number belongs to a named step and stands alone behind an index.
    {"VAR.5", "VAR#5"},
    {"VAR.member.5", "VAR member#5"},
    {"VAR[2].5", "VAR [2] 5#5"},
    {"VAR[2].5.6", "VAR [2] 5#6"},
    {"VAR.--", "VAR#--"},
    {"VAR.5x", "VAR 5x"},
    {"VAR.5[1]", "VAR 5 [1]"},
    {"12", "12#12"},
    {"12.3", "12#3"},
    {"A.12.B", "A 12 B"},
    {"A.1.2", "A 1#2"},
    {"VAR.", "VAR#"},
    {"VAR[2].", "VAR [2] #"},
    // Dots: one is taken off at the start of each step.
    {".VAR|VAR", "VAR"},
    {".|..", "#"},
    {"A..B", "A B"},
    {"A...B", "A [] B"},
    {"A..", "A #"},
    {"..A|...A", "[] A"},
    // Bytes that mean nothing.
    {" A . B ", " A   B "},
    {"\xC3\x84.\xFF[1]", "\xC3\x84 \xFF [1]"},
};

TEST(PathAnalysis, SplitsAPathIntoItsSteps)
{
    for (const PathCase& row : kPaths)
        for (const std::string& path : Split(row.paths))
            EXPECT_EQ(ShowSteps(path), row.steps) << path;
}

TEST(PathAnalysis, HasRoomForSixteenSteps)
{
    EXPECT_EQ(ShowSteps(Repeat(".A", 16) + ".7"), Repeat("A ", 15) + "A#7");
    EXPECT_EQ(ShowSteps("A" + Repeat("[1]", 15)), "A" + Repeat(" [1]", 15));
    for (const std::string& path : {"A" + Repeat("[1]", 15) + "]", "A" + Repeat("[1]", 15) + ".7", Repeat(".A", 17),
                                    "A" + Repeat("[1]", 16), Repeat("A.", 100000)})
        EXPECT_EQ(ShowSteps(path), "refused") << path.substr(0, 60);
    EXPECT_EQ(ShowSteps(Repeat("A", 100000)), Repeat("A", 100000));
}

TEST(PathAnalysis, TakesOneLeadingDotOffTheCallersText)
{
    const PathCase rows[] = {{"", ""}, {".VAR.X", "VAR.X"}, {"..A", ".A"}, {"A.B", "A.B"}, {".[x]", "[x]"}, {".", ""}};
    for (const PathCase& row : rows) {
        CString path(row.paths);
        CSymbKorvaAnalyser analyser;
        analyser.Analyse(path, 0);
        EXPECT_EQ(path.View(), row.steps) << row.paths;
    }
    CString path("A"), name("before");
    CSymbKorvaAnalyser analyser;
    analyser.Analyse(path, 0);
    EXPECT_FALSE(analyser.GetItemName(-1, name) || analyser.GetItemName(1, name)); // there is one step
    EXPECT_EQ(name, "");
}

} // namespace
