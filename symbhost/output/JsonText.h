// JSON, text by text.
#pragma once

#include "symbhost/output/Cell.h"

// Appends `text` with its quotes; bytes that are no UTF-8 become U+FFFD.
void AppendJsonText(std::string& json, std::string_view text);
void AppendJsonCell(std::string& json, const Cell& cell);
// Appends an object with a key for each column.
void AppendJsonObject(std::string& json, std::span<const Column> columns, std::span<const Cell> cells);
