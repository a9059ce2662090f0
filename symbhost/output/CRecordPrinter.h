#pragma once

#include "symbhost/output/CRecordWriter.h"

#include <algorithm>
#include <numeric>

// Prints records of one kind by the description of their fields.
template <class Record>
class CRecordPrinter
{
public:
    // `more` are columns behind those of the record, for which Add gets the cells.
    CRecordPrinter(COutput& output, OutputForm form, std::span<const Field<Record>> described,
                   const std::vector<Column>& more = {})
        : fields(described)
    {
        std::vector<Column> columns;
        for (const Field<Record>& field : fields)
            columns.push_back({field.name, field.title, field.alignRight});
        columns.insert(columns.end(), more.begin(), more.end());
        std::vector<std::size_t> order(columns.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(fields.size()),
                         [this](auto a, auto b) { return fields[a].tablePosition < fields[b].tablePosition; });
        writer = CRecordWriter::Make(form, output, std::move(columns), order);
    }

    void Add(const Record& record, std::span<const Cell> more = {})
    {
        cells.clear();
        for (const Field<Record>& field : fields)
            cells.push_back(field.cell(record));
        cells.insert(cells.end(), more.begin(), more.end());
        writer->Add(cells);
    }
    void Flush() { writer->Flush(); }
    void Finish() { writer->Finish(); }

private:
    std::span<const Field<Record>> fields;
    std::unique_ptr<CRecordWriter> writer;
    std::vector<Cell> cells;
};
