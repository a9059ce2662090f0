#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/output/Cell.h"

#include <memory>
#include <vector>

enum class OutputForm
{
    Table,
    Json,
    Csv
};

// Prints records one after the other: as a table, as one JSON array or as CSV.
class CRecordWriter
{
public:
    CRecordWriter() = default;
    CRecordWriter(const CRecordWriter&) = delete;
    CRecordWriter& operator=(const CRecordWriter&) = delete;
    virtual ~CRecordWriter() = default;

    // One cell for each column.
    virtual void Add(std::span<const Cell> cells) = 0;
    // A table shows `text` in place of all cells but the first; the other forms show nothing.
    virtual void AddNote(std::string_view first, std::string_view text);
    // Whoever waits for the records so far sees them now.
    virtual void Flush() = 0;
    // Prints what is still to be printed; the last call.
    virtual void Finish() = 0;

    // For a table `order` tells where it shows the columns: their indexes from left to right.
    static std::unique_ptr<CRecordWriter> Make(OutputForm form, COutput& output, std::vector<Column> columns,
                                               const std::vector<std::size_t>& order);
};
