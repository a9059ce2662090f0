#pragma once

#include "symbhost/output/COutput.h"

#include <string>
#include <vector>

// Rows of printable cells in columns as wide as their widest cell.
//
// Rows are printed in blocks, so a table of any length takes little memory:
// the columns of later blocks may be wider, never narrower.
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
    void AddRow(const std::vector<std::string>& cells);
    // A first cell like those of other rows and then a text that spans the rest of the line.
    void AddNote(const std::string& cell, const std::string& note);
    // Prints what is still to be printed. The titles come with the first row.
    void Finish();

private:
    struct Row
    {
        std::vector<std::string> cells;
        bool isNote;
    };

    void Add(Row row);
    void PrintRow(const Row& row);

    COutput& output;
    std::vector<Column> columns;
    std::vector<std::size_t> widths;
    std::vector<Row> pending;
    bool hasTitles = false;
};
