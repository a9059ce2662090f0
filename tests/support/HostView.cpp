#include "support/HostView.h"

#include "platform/com/TaskMemory.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/File.h"
#include "platform/win32/Library.h"
#include "support/RecordingSink.h"

#include <cstring>
#include <stdexcept>

namespace {

struct ElementLayout
{
    static constexpr std::size_t kName = 0;
    static constexpr std::size_t kItemId = kWideRecords ? 8 : 4;
    static constexpr std::size_t kKind = kWideRecords ? 16 : 8;
    static constexpr std::size_t kReserved = kWideRecords ? 20 : 12;
    static constexpr std::size_t kReservedEnd = kWideRecords ? 44 : 32;
    static constexpr std::size_t kBytes = kWideRecords ? 48 : 32;
};

std::string JoinTexts(const std::vector<std::string>& texts)
{
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

template <class Function>
void FindExport(HMODULE library, const char* name, Function& function)
{
    FARPROC found = GetProcAddress(library, name);
    if (!found)
        throw std::runtime_error(std::string("the plug-in does not export ") + name);
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

HostLibrary OpenLibraryBesideProgram()
{
    char program[4096];
    DWORD length = GetModuleFileNameA(nullptr, program, sizeof(program));
    std::string folder(program, length);
    HostLibrary library{};
    library.path = folder.substr(0, folder.rfind(kPathSeparator) + 1) + SHARED_LIBRARY_NAME("symbkds");
    HMODULE module = LoadLibraryA(library.path.c_str());
    if (!module)
        throw std::runtime_error("cannot load " + library.path);
    FindExport(module, STDCALL_EXPORT_NAME("NewSymb", 4), library.newSymb);
    FindExport(module, STDCALL_EXPORT_NAME("DeleteSymb", 4), library.deleteSymb);
    FindExport(module, STDCALL_EXPORT_NAME("GetSymbType", 4), library.getSymbType);
    return library;
}

} // namespace

const HostLibrary& LoadHostLibrary()
{
    static const HostLibrary library = OpenLibraryBesideProgram();
    return library;
}

std::string Narrow(LPCWSTR text)
{
    if (!text)
        return "(null)";
    int bytes = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow.data(), bytes, nullptr, nullptr);
    narrow.resize(narrow.size() - 1);
    return narrow;
}

CHostListing::CHostListing(DWORD maxElements) : limit(maxElements), capacity(maxElements)
{
    if (limit == 0)
        return;
    array = CoTaskMemAlloc(limit * ElementLayout::kBytes);
    std::memset(array, 0xCD, limit * ElementLayout::kBytes);
}

CHostListing::~CHostListing()
{
    for (DWORD i = 0; i < count; ++i) {
        CoTaskMemFree(const_cast<LPWSTR>(NameAt(i)));
        CoTaskMemFree(const_cast<LPWSTR>(ItemIdAt(i)));
    }
    CoTaskMemFree(array);
}

HRESULT CHostListing::Run(const CHostTable& table, const HostBrowse& request)
{
    return table->BrowseSymbolsWithProperties(request.filter, request.pattern, request.varType, request.path, 0, 0,
                                              request.branchesOnly, request.leaves, request.branches,
                                              static_cast<LONG>(request.fields.size()), request.fields.data(),
                                              reinterpret_cast<LPCWSTR>(request.parentId), passed.point, limit, 0, 0, 0,
                                              0, passed.more, passed.count, passed.array, passed.capacity, nullptr);
}

LPCWSTR CHostListing::NameAt(DWORD index) const
{
    return ReadAt<LPCWSTR>(array, index * ElementLayout::kBytes + ElementLayout::kName);
}

LPCWSTR CHostListing::ItemIdAt(DWORD index) const
{
    return ReadAt<LPCWSTR>(array, index * ElementLayout::kBytes + ElementLayout::kItemId);
}

HostElement CHostListing::Read(DWORD index) const
{
    const char* record = static_cast<const char*>(array) + index * ElementLayout::kBytes;
    for (std::size_t i = ElementLayout::kReserved; i < ElementLayout::kReservedEnd; ++i) {
        if (record[i] != 0)
            throw std::runtime_error("byte " + std::to_string(i) + " of a browse element is not zero");
    }
    return {Narrow(NameAt(index)), Narrow(ItemIdAt(index)), ReadAt<DWORD>(record, ElementLayout::kKind)};
}

std::string CHostListing::Names() const
{
    std::string joined;
    for (DWORD i = 0; i < count; ++i)
        joined += (i ? ", " : "") + Read(i).name;
    return joined;
}

std::string HostPage::Text() const
{
    std::vector<std::string> texts;
    if (result != 0)
        texts.push_back(ResultName(result));
    for (const HostElement& element : elements) {
        const char* kind = element.kind == 2 ? "" : element.kind == 3 ? " >" : " of an unknown kind";
        texts.push_back(element.name + "=" + element.itemId + kind);
    }
    return JoinTexts(texts) + (more ? " ..." : "");
}

CHostTable::CHostTable()
{
    LoadHostLibrary().newSymb(&symb);
}

CHostTable::CHostTable(CRecordingSink& recordingSink) : CHostTable()
{
    sink = &recordingSink;
}

CHostTable::~CHostTable()
{
    if (owned)
        LoadHostLibrary().deleteSymb(symb);
}

LONG CHostTable::Load(const std::string& path, BOOL verbose, const std::string& dumpDir)
{
    CComScope com;
    sourcePath = path;
    return symb->Init(path.c_str(), sink, verbose, dumpDir.c_str(), 0);
}

std::string CHostTable::TakeMessages() const
{
    std::string text = sink ? sink->TakeText() : "";
    std::string folder = sourcePath.substr(0, sourcePath.find_last_of("/\\") + 1);
    for (std::size_t at = 0; !folder.empty() && (at = text.find(folder, at)) != std::string::npos;)
        text.erase(at, folder.size());
    return text;
}

std::vector<std::string> CHostTable::BrowseNames(const HostBrowse& request) const
{
    CStringArray names;
    HRESULT result = symb->BrowseSymbols(
        request.filter, request.pattern, request.varType, request.path, 0, 0, request.branchesOnly, request.leaves,
        request.branches, static_cast<LONG>(request.fields.size()), request.fields.data(), &names, nullptr);
    std::vector<std::string> texts;
    if (result != 0)
        texts.push_back(ResultName(result));
    for (int i = 0; i < names.GetSize(); ++i)
        texts.emplace_back(names.GetAt(i).View());
    return texts;
}

std::string CHostTable::Browse(const HostBrowse& request) const
{
    return JoinTexts(BrowseNames(request));
}

HostPage CHostTable::BrowsePage(const HostBrowse& request, DWORD limit, const std::string& continuation) const
{
    CHostListing listing(limit);
    std::u16string wide(continuation.size() + 1, u'\0');
    MultiByteToWideChar(CP_UTF8, 0, continuation.c_str(), -1, reinterpret_cast<LPWSTR>(wide.data()),
                        static_cast<int>(wide.size()));
    const LPWSTR given = continuation.empty() ? nullptr : reinterpret_cast<LPWSTR>(wide.data());
    listing.point = given;
    HostPage page;
    page.result = listing.Run(*this, request);
    page.more = listing.more == 1;
    for (DWORD i = 0; i < listing.count; ++i)
        page.elements.push_back(listing.Read(i));
    if (listing.point != given) {
        page.continuation = Narrow(listing.point);
        CoTaskMemFree(listing.point);
    }
    return page;
}

HostPage CHostTable::BrowsePages(const HostBrowse& request, DWORD limit) const
{
    HostPage all;
    std::string continuation;
    do {
        HostPage page = BrowsePage(request, limit, continuation);
        all.result = page.result;
        all.elements.insert(all.elements.end(), page.elements.begin(), page.elements.end());
        continuation = page.continuation;
    } while (all.result == 0 && !continuation.empty());
    return all;
}

std::vector<std::string> CHostTable::Paths(std::vector<std::string> from, std::size_t enough) const
{
    for (std::size_t at = 0; at < from.size() && from.size() < enough; ++at)
        for (const HostElement& element : BrowsePage({.path = std::string(from[at]).c_str()}, 0).elements)
            from.push_back(from[at] + element.itemId.substr(from[at].empty() ? 1 : 0)); // behind "!"
    return from;
}
