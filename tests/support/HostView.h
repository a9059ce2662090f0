// The plug-in as a host sees it.
//
// Everything here is declared a second time, from the host's documents and
// without the plug-in's own headers: the operations by position, the records by
// byte offset, results and codes as numbers. A moved field or operation fails
// the tests whatever the library itself believes. Nothing but the platform's
// texts, arrays and allocators is shared, as between any host and its plug-ins.
#pragma once

#include "platform/com/ClassObject.h"
#include "platform/com/Variant.h"
#include "platform/mfc/CArray.h"
#include "platform/mfc/CString.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

class CHostSink;
class CRecordingSink;

// Whether the records that hold pointers have their 64-bit layout.
inline constexpr bool kWideRecords = sizeof(void*) == 8;

// A field of a record by its byte offset.
template <class Value>
Value ReadAt(const void* record, std::size_t offset)
{
    Value value;
    std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof(value));
    return value;
}

// The operations in their order.
class CHostSymb
{
public:
    virtual LONG Init(LPCSTR path, CHostSink* sink, BOOL verboseFlag, LPCSTR dumpDir, LONG unused) = 0;
    virtual DWORD GetSymbolTableType() = 0;
    virtual CString GetDescription() = 0;
    virtual CString GetSourceName() = 0;
    virtual HRESULT ReservedA(LONG, LONG, LONG) = 0;
    virtual HRESULT ReservedB(LONG, LONG, LONG, LONG, LONG) = 0;
    virtual HRESULT ReservedC() = 0;
    virtual HRESULT SearchAndGetFF(DWORD selector, LPCSTR name, CString& address, CString& comment, void** descriptor,
                                   DWORD* propertyCount, void** properties) = 0;
    virtual HRESULT ReservedD(LONG) = 0;
    virtual HRESULT BrowseSymbols(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter, LPCSTR browsePath,
                                  DWORD reserved1, DWORD reserved2, BOOL branchesOnly, BOOL wantLeaves,
                                  BOOL wantBranches, LONG fieldCount, const char* fieldCodes, CStringArray* names,
                                  CStringArray* extra) = 0;
    virtual HRESULT BrowseSymbolsWithProperties(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter,
                                                LPCSTR browsePath, DWORD reserved1, DWORD reserved2, BOOL branchesOnly,
                                                BOOL wantLeaves, BOOL wantBranches, LONG fieldCount,
                                                const char* fieldCodes, LPCWSTR parentId, LPWSTR* continuationPoint,
                                                DWORD maxElements, DWORD, DWORD, DWORD, DWORD, DWORD* moreElements,
                                                DWORD* elementCount, void** elements, DWORD* elementCapacity,
                                                CStringArray* extra) = 0;
    virtual CString GetHeaderName() = 0;
    virtual CString GetInfoTextA() = 0;
    virtual CString GetInfoTextB() = 0;
    virtual HRESULT ValidateConsistency(LONG, LONG, LONG, LONG) = 0;
    virtual HRESULT ReloadAndUpdateSymbols(LONG, LONG) = 0;
    virtual HRESULT ReOpenDatabase(void** out) = 0;
    virtual HRESULT GetCountValue(DWORD* value) = 0;
    virtual LONG GetGeneration() = 0;
    virtual HRESULT ReservedE(LONG) = 0;
    virtual HRESULT ReservedF(LONG) = 0;
    virtual LONG GetConsistencyState() = 0;
    virtual void SetVerbose(BOOL flag) = 0;
    virtual ~CHostSymb() = default; // only the plug-in calls it
};

// The built plug-in beside the running program, loaded for as long as the program runs.
struct HostLibrary
{
    HRESULT(WINAPI* newSymb)(CHostSymb** symbolTable);
    HRESULT(WINAPI* deleteSymb)(CHostSymb* symbolTable);
    HRESULT(WINAPI* getSymbType)(DWORD* typeCode);
    std::string path;
};
// Throws std::runtime_error when the library or one of its exports is missing.
const HostLibrary& LoadHostLibrary();

// "S_OK", "refused" for 0xFFFFFFFF, "E_INVALIDARG" ..., else the number in hexadecimal.
std::string ResultName(HRESULT result);

// The name of a type code: "INT", "INT[]" for its array code, "structured",
// "unclassified", else the number in hexadecimal.
std::string TypeCodeName(DWORD typeCode);

// A resolved symbol, copied out of what the library handed over, which is released already.
struct HostSymbol
{
    HRESULT result = 0;
    std::string typeName, kindName, customerString, address, comment;
    DWORD typeCode = 0, extraction = 0, indirection = 0, offset = 0, size = 0, relativeOffset = 0, accessRight = 0;
    WORD block = 0, relativeSize = 0;
    BYTE bit = 0;
    std::string messages;  // what the sink received meanwhile, the export's folder taken off
    std::string deviation; // what breaks the contract of the records themselves; should be empty

    // One line: type name, " as CODE" when the type code names another, +offset, size; then, where it is not the
    // usual (block 0, whole, direct, no relative part, access 3, no texts): "block 5", "bit 3", "by reference",
    // "relative +4/2", "access 1", "at %MW10", "'comment'", customer "text". The kind is not shown: that it is the
    // one of the type code is checked. A failure is its result's name and ", silent"; messages follow ": " after
    // either.
    std::string Text() const;
};

// What to list; the defaults list everything.
struct HostBrowse
{
    const char* path = "";
    const char* pattern = "*";
    const char* filter = "";
    VARTYPE varType = 0;
    BOOL branchesOnly = FALSE;
    BOOL leaves = TRUE;
    BOOL branches = TRUE;
    std::string_view fields = {};
    const char16_t* parentId = nullptr;
};

struct HostElement
{
    std::string name, itemId;
    DWORD kind;
};

// A page or several joined.
struct HostPage
{
    HRESULT result = 0;
    bool more = false;
    std::string continuation; // the entry to resume at; empty when there is none
    std::vector<HostElement> elements;

    // "NAME=itemId" of each leaf, "NAME=itemId >" of each branch, joined by ", "; " ..." when there is more; a
    // failure's name first.
    std::string Text() const;
};

class CHostTable;

// One lookup with the host's variables at hand; gives back what they hold.
struct CHostLookup
{
    CHostLookup() = default;
    CHostLookup(const CHostLookup&) = delete;
    CHostLookup& operator=(const CHostLookup&) = delete;
    ~CHostLookup();

    HRESULT Ask(const CHostTable& table, LPCSTR name, DWORD selector = 0);

    CString address, comment;
    void *descriptor = nullptr, *properties = nullptr;
    DWORD count = 0;
};

// Property browses with the host's variables at hand; gives back the elements and their array.
struct CHostListing
{
    // Room for `maxElements` elements, its bytes not zero; 0: the library makes the room.
    explicit CHostListing(DWORD maxElements = 0);
    CHostListing(const CHostListing&) = delete;
    CHostListing& operator=(const CHostListing&) = delete;
    ~CHostListing();

    HRESULT Run(const CHostTable& table, const HostBrowse& request = {});

    // A text of an element: its name, or its item identifier.
    LPCWSTR NameAt(DWORD index) const;
    LPCWSTR ItemIdAt(DWORD index) const;
    // Throws std::runtime_error when a reserved field is not zero.
    HostElement Read(DWORD index) const;
    std::string Names() const;

    DWORD limit, capacity;
    void* array = nullptr;
    DWORD count = 0;
    DWORD more = 7;         // no value of the library's
    LPWSTR point = nullptr; // stays with the caller
    struct
    {
        LPWSTR* point;
        DWORD *more, *count;
        void** array;
        DWORD* capacity;
    } passed{&point, &more, &count, &array, &capacity};
};

// An object of the library's CSymb as a host sees it.
template <class Symb>
CHostSymb& AsHostSees(Symb& symb)
{
    void* const object = &symb;
    return *static_cast<CHostSymb*>(object);
}

// One symbol table of a host, from NewSymb to DeleteSymb.
class CHostTable
{
public:
    CHostTable();
    explicit CHostTable(CRecordingSink& sink);
    // A table that lives elsewhere and outlives this one.
    CHostTable(CRecordingSink& recordingSink, CHostSymb& other) : symb(&other), sink(&recordingSink), owned(false) {}
    CHostTable(const CHostTable&) = delete;
    CHostTable& operator=(const CHostTable&) = delete;
    ~CHostTable();

    CHostSymb* operator->() const { return symb; }

    // Init with the sink, COM initialised for the call.
    LONG Load(const std::string& path, BOOL verbose = TRUE, const std::string& dumpDir = "");

    HostSymbol Resolve(const char* name) const;
    std::string Lookup(const char* name) const { return Resolve(name).Text(); }

    // The entries joined by ", ", or the result's name when it is not S_OK.
    std::string Browse(const HostBrowse& request = {}) const;
    std::vector<std::string> BrowseNames(const HostBrowse& request = {}) const;

    // One page; `limit` 0 lists everything there is.
    HostPage BrowsePage(const HostBrowse& request, DWORD limit, const std::string& continuation = "") const;
    // Every page of at most `limit` elements, joined.
    HostPage BrowsePages(const HostBrowse& request, DWORD limit) const;

    // These paths and what is listed below them, down to the last element, until there are enough.
    std::vector<std::string> Paths(std::vector<std::string> from, std::size_t enough) const;

    // What the sink received since the last call, the export's folder taken off.
    std::string TakeMessages() const;

private:
    CHostSymb* symb = nullptr;
    CRecordingSink* sink = nullptr;
    bool owned = true;
    std::string sourcePath;
};

// Initialises COM on this thread while it lives.
struct CComScope
{
    CComScope() { CoInitializeEx(nullptr, COINIT_MULTITHREADED); }
    CComScope(const CComScope&) = delete;
    CComScope& operator=(const CComScope&) = delete;
    ~CComScope() { CoUninitialize(); }
};

std::string Narrow(LPCWSTR text);
