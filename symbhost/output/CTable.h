#pragma once

#include "symbhost/output/COutput.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Rows of printable cells in columns.
//
// The first rows are held back and tell how wide the columns are; from then on the widths stay and
// rows are printed as they come. A cell that is much wider than the others of its column, or comes later,
// moves the rest of its own row only. On a terminal, lines end at its edge.
class CTable
{
public:
    struct Column
    {
        std::string title;
        bool alignRight = false;
    };

    CTable(COutput& target, std::vector<Column> given);

    // One cell for each column; any text, it is made printable here.
    void AddRow(std::span<const std::string_view> cells) { Add(cells, false); }
    // A first cell like those of other rows and then a text that spans the rest of the line.
    void AddNote(std::string_view cell, std::string_view note) { Add(std::array{cell, note}, true); }
    // Prints what was held back; the titles come with the first row.
    void Flush();

private:
    struct Row
    {
        std::vector<std::string> cells; // printable
        bool isNote;
    };

    void Add(std::span<const std::string_view> cells, bool isNote);
    void FixWidths();
    std::size_t WidthOf(std::size_t column) const;
    void PrintRow(std::span<const std::string_view> cells, bool isNote);
    // Puts cells side by side into `line`; `width` tells how many columns a text takes.
    template <class Width>
    void Arrange(std::span<const std::string_view> cells, bool isNote, Width&& width);

    COutput& output;
    std::vector<Column> columns;
    std::vector<std::size_t> widths; // empty while rows are held back
    std::vector<Row> pending;
    std::string line; // that is printed next
};
