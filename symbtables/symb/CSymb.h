#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CArray.h"
#include "platform/mfc/CString.h"
#include "symb/AddressDescriptor.h"
#include "symb/BrowseElement.h"
#include "symb/CTraceSink.h"
#include "symb/PropertyEntry.h"

// The interface through which a host drives a symbol table.
//
// The host obtains an object with NewSymb of a plug-in, loads it once with
// Init, queries it from any of its threads and gives it back with DeleteSymb of
// the same plug-in; it never calls the destructor. The order of the operations
// is the contract: hosts call them by position.
//
// Threads: operations marked [lock] hold the object's re-entrant lock from
// start to return, so they wait for one another. The others may be called at
// any time between NewSymb and DeleteSymb. COM must be initialised on the
// thread that calls Init.
//
// Texts: narrow texts are null-terminated; names, comments and patterns are
// UTF-8, paths are in the system's ANSI code page. LPWSTR texts are UTF-16.
//
// Errors: the result is the whole answer. An allocation that fails leaves the
// object usable; where an operation says so, it passes CMemoryException on.
class CSymb
{
public:
    // [lock] Loads the export file `path` (null counts as empty) and adds its
    // types and variables to the dictionaries; meant to be called once. `sink`
    // may be null. With `verboseFlag` 0 the lookup's messages are not sent, nor
    // the one that says that the component cannot be walked. After the load the
    // dictionaries are written into the folder `dumpDir`; null or empty: no
    // dump. A dump that cannot be created is not reported. `unused` is not read.
    // Returns -1 when the export could not be opened, else 0, also when an
    // exception broke off the opening or an import: that is told by a message
    // alone. Passes CMemoryException on when the arguments cannot be stored,
    // and whatever the sink throws; other exceptions end in a message.
    virtual LONG Init(LPCSTR path, CTraceSink* sink, BOOL verboseFlag, LPCSTR dumpDir, LONG unused) = 0;

    // The type code of this kind of symbol table.
    virtual DWORD GetSymbolTableType() = 0;
    // What this kind of symbol table is, for people.
    virtual CString GetDescription() = 0;
    // [lock] The path given to Init, unchanged; empty before.
    virtual CString GetSourceName() = 0;

    // Not provided: E_NOTIMPL.
    virtual HRESULT ReservedA(LONG, LONG, LONG) = 0;
    virtual HRESULT ReservedB(LONG, LONG, LONG, LONG, LONG) = 0;
    virtual HRESULT ReservedC() = 0;

    // [lock] Resolves the symbol `name` (any case; null counts as empty) to its
    // address. `selector` is 0 or 1 and means nothing more.
    //
    // S_OK: `address` holds the address text such as %MW10.5 (or nothing) and
    // `comment` the comment, UTF-8; `*descriptor` is released by the host with
    // free, `*properties` with delete[]. That is an array of `*propertyCount`
    // entries, 6 or 7: block, offset, size, type, kind, customer string, address.
    // E_INVALIDARG: `selector` above 1 or a null pointer (nothing is written),
    // or the path below a variable leads nowhere. kLookupFailed: any other
    // failure. After a failure `*descriptor` and `*properties` are null and
    // `*propertyCount` is 0; `address` and `comment` keep what they held.
    // Passes CMemoryException on; what was allocated is released before.
    virtual HRESULT SearchAndGetFF(DWORD selector, LPCSTR name, CString& address, CString& comment,
                                   AddressDescriptor** descriptor, DWORD* propertyCount, PropertyEntry** properties);

    // Not provided: E_NOTIMPL.
    virtual HRESULT ReservedD(LONG);

    // [lock] Appends to `names` an entry for each symbol below `browsePath`
    // (null or empty: the variables).
    //
    // filter         not null; with "%UL" in it only what has no "%" address is
    //                listed
    // namePattern    not null; "*" or a case-sensitive prefix, ended by the
    //                first "*" if there is one
    // varTypeFilter  0, or the variant type that a leaf must have (and a branch
    //                that is a member of a structure, when both are listed)
    // branchesOnly   only entries of a derived type
    // wantLeaves,    which entries to list otherwise
    // wantBranches
    // fieldCount,    for each code "|" and a text are added to the entry: 'A'
    // fieldCodes     the address, 'C' the comment, else nothing
    // reserved1,     not used
    // reserved2,
    // extra
    //
    // A listing considers at most 1,048,576 elements of an array and ends when
    // its texts grow beyond 128 MiB together.
    //
    // E_INVALIDARG: `filter`, `namePattern` or `names` null, `fieldCodes` null
    // with a `fieldCount` above 0, or `browsePath` does not lead to a value of a
    // derived type. An exception ends the listing early with S_OK; entries stay.
    virtual HRESULT BrowseSymbols(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter, LPCSTR browsePath,
                                  DWORD reserved1, DWORD reserved2, BOOL branchesOnly, BOOL wantLeaves,
                                  BOOL wantBranches, LONG fieldCount, const char* fieldCodes, CStringArray* names,
                                  CStringArray* extra) = 0;

    // [lock] Lists symbols as records with item identifiers, page by page.
    //
    // The arguments up to `fieldCodes` are those of BrowseSymbols, but `filter`
    // and `namePattern` may be null (empty), and "%UL" selects the variables
    // with an empty address.
    //
    // parentId           the host's identifier of `browsePath`; may be null
    // continuationPoint  in: a null or empty text to start at the first entry,
    //                    else the name of the entry to resume at; out, when the
    //                    listing is cut: a new text (CoTaskMemAlloc) with the
    //                    name of the first entry that did not fit. The text
    //                    passed in is not freed. May be null itself.
    // maxElements        0: no limit, the array is grown with CoTaskMemRealloc;
    //                    otherwise at most this many elements in all, which
    //                    `*elements` must have room for
    // moreElements       out: 1 when the listing is cut, else left alone
    // elementCount       in and out: filled elements; new ones follow them
    // elements,          in and out: the array and its capacity in elements
    // elementCapacity
    //
    // E_INVALIDARG: one of the last four null, `fieldCodes` null with a
    // `fieldCount` above 0, a null array with a limit or an element count, or
    // `browsePath` does not lead to a value of a derived type. E_OUTOFMEMORY:
    // the task allocator failed; the array is valid and `*elementCount` counts
    // complete elements. Passes CMemoryException on, with the array valid too.
    virtual HRESULT BrowseSymbolsWithProperties(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter,
                                                LPCSTR browsePath, DWORD reserved1, DWORD reserved2, BOOL branchesOnly,
                                                BOOL wantLeaves, BOOL wantBranches, LONG fieldCount,
                                                const char* fieldCodes, LPCWSTR parentId, LPWSTR* continuationPoint,
                                                DWORD maxElements, DWORD, DWORD, DWORD, DWORD, DWORD* moreElements,
                                                DWORD* elementCount, BrowseElement** elements, DWORD* elementCapacity,
                                                CStringArray* extra) = 0;

    // [lock] "Unknwow" once an Init has got beyond opening the export, also
    // when an exception broke the opening off; empty before.
    virtual CString GetHeaderName() = 0;
    // Empty texts.
    virtual CString GetInfoTextA() = 0;
    virtual CString GetInfoTextB() = 0;

    // S_OK, nothing else.
    virtual HRESULT ValidateConsistency(LONG, LONG, LONG, LONG) = 0;
    // Not provided: E_NOTIMPL. ReOpenDatabase is what lookups and browses call
    // on their own object when the export file has another time than at Init.
    virtual HRESULT ReloadAndUpdateSymbols(LONG, LONG) = 0;
    virtual HRESULT ReOpenDatabase(void** out) = 0;
    // Stores 0; E_INVALIDARG for null.
    virtual HRESULT GetCountValue(DWORD* value) = 0;
    // How often the dictionaries were replaced: never, so 0.
    virtual LONG GetGeneration() = 0;
    // Not provided: E_NOTIMPL.
    virtual HRESULT ReservedE(LONG) = 0;
    virtual HRESULT ReservedF(LONG) = 0;
    // How the dictionaries compare with the controller: 5, not compared.
    virtual LONG GetConsistencyState();
    // [lock] Whether the lookup's messages are sent.
    virtual void SetVerbose(BOOL flag);

    virtual ~CSymb();

    // What SearchAndGetFF returns for every failure but E_INVALIDARG.
    static constexpr HRESULT kLookupFailed = -1;
};

inline HRESULT CSymb::SearchAndGetFF(DWORD, LPCSTR, CString&, CString&, AddressDescriptor**, DWORD*, PropertyEntry**)
{
    return E_NOTIMPL;
}

inline HRESULT CSymb::ReservedD(LONG)
{
    return E_NOTIMPL;
}

inline LONG CSymb::GetConsistencyState()
{
    return 5;
}

inline void CSymb::SetVerbose(BOOL) {}

inline CSymb::~CSymb() = default;
