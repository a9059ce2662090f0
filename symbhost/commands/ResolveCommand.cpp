#include "symbhost/commands/ResolveCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/CNameList.h"
#include "symbhost/exports/Lookup.h"
#include "symbhost/output/CJsonArray.h"
#include "symbhost/output/CTable.h"

#include <iostream>

namespace {

const std::vector<CTable::Column> kColumns = {{"NAME"},        {"ADDRESS"},      {"TYPE"},           {"KIND"},
                                              {"BLOCK", true}, {"OFFSET", true}, {"SIZE", true},     {"BIT", true},
                                              {"ACCESS"},      {"COMMENT"},      {"CUSTOMER STRING"}};

std::string OrDash(const std::string& text)
{
    return text.empty() ? "-" : text;
}

void AddTo(CTable& table, const LookupAnswer& symbol)
{
    if (!symbol.IsResolved()) {
        const std::string reason = symbol.message.empty() ? "" : ": " + symbol.message;
        table.AddNote(symbol.name, "failed " + ResultText(symbol.result) + reason);
        return;
    }
    const AddressDescriptor& place = symbol.descriptor;
    table.AddRow({symbol.name, OrDash(symbol.address), symbol.typeName,
                  symbol.kindName + (symbol.IsByReference() ? " by reference" : ""), std::to_string(place.block),
                  std::to_string(place.offset), std::to_string(place.size),
                  symbol.IsBit() ? std::to_string(place.bit) : "-", symbol.Access(), symbol.comment,
                  symbol.customerString});
}

nlohmann::ordered_json ToJson(const LookupAnswer& symbol)
{
    nlohmann::ordered_json json = {{"name", symbol.name}, {"result", ResultText(symbol.result)}};
    if (!symbol.IsResolved()) {
        if (!symbol.message.empty())
            json["message"] = symbol.message;
        return json;
    }
    const AddressDescriptor& place = symbol.descriptor;
    json["address"] = symbol.address;
    json["type"] = symbol.typeName;
    json["typeCode"] = HexText(place.typeCode);
    json["kind"] = symbol.kindName;
    json["block"] = place.block;
    json["offset"] = place.offset;
    json["size"] = place.size;
    json["bit"] = symbol.IsBit() ? nlohmann::ordered_json(place.bit) : nlohmann::ordered_json();
    json["byReference"] = symbol.IsByReference();
    json["relativeOffset"] = place.relativeOffset;
    json["relativeSize"] = place.relativeSize;
    json["access"] = symbol.Access();
    json["comment"] = symbol.comment;
    json["customerString"] = symbol.customerString;
    return json;
}

// Looks every name up and hands it to `show`.
template <class Show>
int ResolveAll(CLoadedExport& loaded, const ResolveOptions& options, Show&& show)
{
    int status = kDone;
    CNameList names(options.names, std::cin);
    while (const std::optional<std::string> name = names.Next()) {
        const LookupAnswer symbol = LookUp(loaded.Table(), loaded.Sink(), *name);
        status = symbol.IsResolved() ? status : kIncomplete;
        show(symbol);
    }
    return status;
}

} // namespace

int ResolveCommand(CLoadedExport& loaded, const ResolveOptions& options, COutput& output)
{
    if (options.json) {
        CJsonArray array(output);
        const int status = ResolveAll(loaded, options, [&](const auto& symbol) { array.Add(ToJson(symbol)); });
        array.Finish();
        return status;
    }
    CTable table(output, kColumns);
    const int status = ResolveAll(loaded, options, [&](const auto& symbol) { AddTo(table, symbol); });
    table.Finish();
    return status;
}
