#include "symbhost/output/CJsonArray.h"

void CJsonArray::Add(const nlohmann::ordered_json& element)
{
    output.Write(isEmpty ? "[\n  " : ",\n  ");
    output.Write(element.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
    isEmpty = false;
}

void CJsonArray::Finish()
{
    output.Line(isEmpty ? "[]" : "\n]");
    output.Flush();
}
