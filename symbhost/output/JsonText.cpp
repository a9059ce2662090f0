#include "symbhost/output/JsonText.h"

#include "symbhost/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

// Whether JSON shows the text as it is.
bool IsJson(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; });
}

struct CAppendJson
{
    std::string& json;

    void operator()(std::monostate) const { json += "null"; }
    void operator()(std::string_view text) const { AppendJsonText(json, text); }
    void operator()(std::int64_t number) const { json += std::to_string(number); }
    void operator()(bool flag) const { json += flag ? "true" : "false"; }
    void operator()(HexNumber number) const { AppendJsonText(json, HexText(number.value)); }
    void operator()(RawJson raw) const { json += raw.text; }
    void operator()(NoField) const {}
    void operator()(std::span<const std::string> texts) const
    {
        json += '[';
        for (const std::string& text : texts) {
            json += &text == texts.data() ? "" : ",";
            AppendJsonText(json, text);
        }
        json += ']';
    }
};

} // namespace

void AppendJsonText(std::string& json, std::string_view text)
{
    if (!IsJson(text)) {
        json += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        return;
    }
    json += '"';
    json += text;
    json += '"';
}

void AppendJsonCell(std::string& json, const Cell& cell)
{
    std::visit(CAppendJson{json}, cell);
}

void AppendJsonObject(std::string& json, std::span<const Column> columns, std::span<const Cell> cells)
{
    json += '{';
    for (std::size_t at = 0; at < cells.size(); ++at) {
        if (std::holds_alternative<NoField>(cells[at]))
            continue;
        if (json.back() != '{')
            json += ',';
        AppendJsonText(json, columns[at].name);
        json += ':';
        AppendJsonCell(json, cells[at]);
    }
    json += '}';
}
