// Path and lookup texts against the example plant, which is loaded once.
//
// An input is lines: a path, a name pattern, a filter, field codes, an entry to
// resume at, and one whose first bytes are the flags and the variant type.
#include "FuzzInput.h"

#include "support/HostView.h"
#include "support/RecordingSink.h"

namespace {

struct CPlant
{
    CPlant() { Require(table.Load(EXAMPLES_DIR "/plant.kds") == 0, "the plant loads", EXAMPLES_DIR); }

    CRecordingSink sink;
    CHostTable table{sink};
};

struct Request
{
    std::string path, pattern, filter, fields, resumeAt, flags;

    explicit Request(CFuzzLines lines)
        : path(lines.Take()), pattern(lines.Take()), filter(lines.Take()), fields(lines.Take()), resumeAt(lines.Take()),
          flags(lines.Take())
    {
        flags.resize(2);
    }

    HostBrowse Browse() const
    {
        return {.path = path.c_str(),
                .pattern = pattern.c_str(),
                .filter = filter.c_str(),
                .varType = static_cast<VARTYPE>(static_cast<unsigned char>(flags[1])),
                .branchesOnly = flags[0] & 1,
                .leaves = !(flags[0] & 2),
                .branches = !(flags[0] & 4),
                .fields = fields};
    }
};

std::string Place(const HostSymbol& symbol)
{
    return ResultName(symbol.result) + " " + TypeCodeName(symbol.typeCode) + " +" + std::to_string(symbol.offset) +
           " size " + std::to_string(symbol.size) + " bit " + std::to_string(symbol.bit) + " " + symbol.address;
}

void Resolve(const CHostTable& table, const Request& request)
{
    const HostSymbol symbol = table.Resolve(request.path.c_str());
    Require(symbol.deviation.empty(), "records follow the contract", symbol.Text());
    const HostSymbol again = table.Resolve(request.path.c_str());
    Require(Place(symbol) == Place(again), "a lookup gives the same again", request.path);
}

void List(const CHostTable& table, const Request& request)
{
    const HostBrowse browse = request.Browse();
    table.BrowseNames(browse);
    const HostPage whole = table.BrowsePage(browse, 0);
    const HostPage pages = table.BrowsePages(browse, 3);
    // A path that is no UTF-8 names elements by texts that do not come back as they went.
    const bool resumable = whole.Text().find("\xEF\xBF\xBD") == std::string::npos;
    Require(!resumable || whole.elements.size() == pages.elements.size(), "pages list every entry once", request.path);
    // What a first listing makes upper case shows in the fields of the next.
    if (resumable && browse.fields.empty())
        Require(whole.Text() == pages.Text(), "pages join to the whole listing", whole.Text() + " / " + pages.Text());
    table.BrowsePage(browse, 2, request.resumeAt);
    table.BrowsePage(browse, 0, request.resumeAt);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static CPlant plant;
    const Request request{CFuzzLines(data, size)};
    plant.table->SetVerbose(request.flags[0] & 8);
    Resolve(plant.table, request);
    List(plant.table, request);
    plant.sink.TakeText();
    return 0;
}
