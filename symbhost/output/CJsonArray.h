#pragma once

#include "symbhost/output/COutput.h"

#include <nlohmann/json.hpp>

// Prints a JSON array element by element, one on each line.
class CJsonArray
{
public:
    explicit CJsonArray(COutput& target) : output(target) {}

    // Bytes that are no UTF-8 are printed as U+FFFD.
    void Add(const nlohmann::ordered_json& element);
    void Finish();

private:
    COutput& output;
    bool isEmpty = true;
};
