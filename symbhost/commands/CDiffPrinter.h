#pragma once

#include "symbhost/exports/RowChange.h"
#include "symbhost/output/CRecordWriter.h"

// Prints differences: lines for people and a count at the end, or records with the rows of both sides.
class CDiffPrinter
{
public:
    // `more` are columns behind ours, for CSV alone.
    CDiffPrinter(COutput& target, OutputForm wanted, const std::vector<Column>& more);

    // `before` is null for an added symbol, `after` for a removed one; `more` are the cells of the further columns.
    void Add(const Row* before, const Row* after, unsigned changes, std::span<const Cell> more);
    void Finish();

    // Differences so far.
    std::size_t Count() const { return added + removed + changed; }

private:
    void PrintLine(const Row* before, const Row* after, unsigned changes);
    void PrintRecord(const Row* before, const Row* after, unsigned changes, std::span<const Cell> more);

    COutput& output;
    OutputForm form;
    std::unique_ptr<CRecordWriter> writer; // null for people
    std::vector<Column> rowColumns;
    std::vector<Cell> cells;
    std::size_t added = 0;
    std::size_t removed = 0;
    std::size_t changed = 0;
};
