// Rows that the program printed as JSON, in a short form: its keys' values, joined by blanks.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

// One line for each row; a text is shown as it is, what is not known as "-".
inline std::string ShortRows(const std::string& json, const std::vector<std::string>& keys)
{
    std::string lines;
    for (const auto& row : nlohmann::json::parse(json)) {
        for (const std::string& key : keys) {
            const auto& value = row.at(key);
            lines += value.is_null() ? "-" : value.is_string() ? value.get<std::string>() : value.dump();
            lines += &key == &keys.back() ? "\n" : " ";
        }
    }
    return lines;
}
