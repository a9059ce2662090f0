// Texts of strangers on a terminal.
#include "symbhost/Text.h"

#include <gtest/gtest.h>

namespace {

TEST(TextTest, PrintableEscapesWhatMovesTheTerminal)
{
    const struct
    {
        std::string text;
        std::string printable;
        std::size_t width;
    } cases[] = {
        {"Größe €😀", "Größe €😀", 8},
        {"\n\r\t\x1b\x7f", "\\n\\r\\t\\x1b\\x7f", 14},
        {"\xc2\x9b|\xe2\x80\xae|\xef\xbb\xbf", "\\u009b|\\u202e|\\ufeff", 20},
        {"\x80|\xc3|\xe2\x82", "\\x80|\\xc3|\\xe2\\x82", 18},        // no character starts or ends here
        {"\xc0\x80|\xe0\x9f\xbf", "\\xc0\\x80|\\xe0\\x9f\\xbf", 21}, // longer than need be
        {"\xed\xa0\x80|\xf4\x90\x80\x80|\xff", "\\xed\\xa0\\x80|\\xf4\\x90\\x80\\x80|\\xff", 34},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Printable(row.text), row.printable);
        EXPECT_EQ(DisplayWidth(row.printable), row.width) << row.printable;
    }
}

} // namespace
