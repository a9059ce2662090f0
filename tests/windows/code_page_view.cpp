// Shows, byte by byte, what a host receives for texts beyond ASCII under the system's ANSI code page.
//
//   code_page_view EXPORT
//
// Narrow bytes above 0x7E are printed as \xNN, UTF-16 units above 0x7E as \uNNNN.
#include "platform/com/TaskMemory.h"
#include "platform/win32/CodePage.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"

#include <cstdio>
#include <string>

namespace {

std::string Escaped(LPCSTR text)
{
    std::string shown;
    char escape[8];
    for (; *text; ++text) {
        const unsigned value = static_cast<unsigned char>(*text);
        std::snprintf(escape, sizeof escape, value < 0x7F ? "%c" : "\\x%02X", value);
        shown += escape;
    }
    return shown;
}

std::string Escaped(LPCWSTR text)
{
    std::string shown;
    char escape[8];
    for (; *text; ++text) {
        std::snprintf(escape, sizeof escape, *text < 0x7F ? "%c" : "\\u%04X", static_cast<unsigned>(*text));
        shown += escape;
    }
    return shown;
}

void ShowLookup(const CHostTable& table, const std::string& name)
{
    const HostSymbol symbol = table.Resolve(name.c_str());
    std::printf("lookup   %s: %s, comment %s\n", Escaped(name.c_str()).c_str(), ResultName(symbol.result).c_str(),
                Escaped(symbol.comment.c_str()).c_str());
    std::printf("messages %s\n", Escaped(table.TakeMessages().c_str()).c_str());
}

// One page of at most `limit` elements; returns the point at which the next one begins, null when there is none. The
// caller frees it.
LPWSTR ShowPage(const CHostTable& table, DWORD limit, LPWSTR point)
{
    CHostListing page(limit);
    const LPWSTR given = point;
    page.point = point;
    const HRESULT result = page.Run(table);
    point = page.point;
    std::printf("page of %lu: %s, %lu elements\n", limit, ResultName(result).c_str(), page.count);
    for (DWORD i = 0; i < page.count; ++i)
        std::printf("  name %s, item %s\n", Escaped(page.NameAt(i)).c_str(), Escaped(page.ItemIdAt(i)).c_str());
    if (point == given)
        return nullptr;
    std::printf("  continues at %s\n", Escaped(point).c_str());
    return point;
}

std::string ToCodePage(LPCWSTR wide)
{
    char narrow[256];
    WideCharToMultiByte(CP_ACP, 0, wide, -1, narrow, sizeof narrow, nullptr, nullptr);
    return narrow;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    std::printf("code page %u\n", GetACP());
    CRecordingSink sink;
    CHostTable table(sink);
    if (table.Load(argv[1]) != 0)
        return 1;
    for (const std::string& entry : table.BrowseNames())
        std::printf("entry    %s\n", Escaped(entry.c_str()).c_str());
    for (const std::string& entry : table.BrowseNames({.fields = "C"}))
        std::printf("comment  %s\n", Escaped(entry.c_str()).c_str());
    ShowLookup(table, table.BrowseNames().at(1));
    CHostListing all;
    all.Run(table);
    // A host that turns the name it was given back into narrow text, as most do.
    if (all.count > 1)
        ShowLookup(table, ToCodePage(all.NameAt(1)));
    const LPWSTR next = ShowPage(table, 1, nullptr);
    if (next)
        CoTaskMemFree(ShowPage(table, 2, next));
    CoTaskMemFree(next);
    return 0;
}
