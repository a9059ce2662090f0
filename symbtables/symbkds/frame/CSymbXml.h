#pragma once

#include "platform/mfc/CCriticalSection.h"
#include "platform/mfc/CMap.h"
#include "symb/CSymb.h"
#include "symbkds/frame/LockRanks.h"
#include "symbkds/frame/TraceMessages.h"
#include "symbkds/model/CSymbXMLItemDef.h"
#include "symbkds/model/MAPOFDDTDEF.h"
#include "symbkds/model/MemoryArea.h"

#include <array>

struct CImportConnection;
struct WalkElement;
struct WalkSource;

// The symbol table of one loaded export.
//
// Two dictionaries, filled by Init and emptied by destruction: the variables
// and the derived types. In between nothing changes them, except that requests
// register anonymous array types, upper-case stored type names and classify
// members anew. Every operation that touches them holds `lock`; operations below
// that say so expect their caller to hold it.
class CSymbXml : public CSymb
{
public:
    using Variables = CMap<CString, LPCSTR, CSymbXMLItemDef*, CSymbXMLItemDef*>;

    CSymbXml();
    CSymbXml(const CSymbXml&) = delete;
    CSymbXml& operator=(const CSymbXml&) = delete;
    ~CSymbXml() override;

    LONG Init(LPCSTR path, CTraceSink* sink, BOOL verboseFlag, LPCSTR dumpDir, LONG unused) override;
    DWORD GetSymbolTableType() override;
    CString GetDescription() override;
    CString GetSourceName() override;
    HRESULT ReservedA(LONG, LONG, LONG) override;
    HRESULT ReservedB(LONG, LONG, LONG, LONG, LONG) override;
    HRESULT ReservedC() override;
    HRESULT SearchAndGetFF(DWORD selector, LPCSTR name, CString& address, CString& comment,
                           AddressDescriptor** descriptor, DWORD* propertyCount, PropertyEntry** properties) override;
    HRESULT BrowseSymbols(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter, LPCSTR browsePath, DWORD reserved1,
                          DWORD reserved2, BOOL branchesOnly, BOOL wantLeaves, BOOL wantBranches, LONG fieldCount,
                          const char* fieldCodes, CStringArray* names, CStringArray* extra) override;
    HRESULT BrowseSymbolsWithProperties(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter, LPCSTR browsePath,
                                        DWORD reserved1, DWORD reserved2, BOOL branchesOnly, BOOL wantLeaves,
                                        BOOL wantBranches, LONG fieldCount, const char* fieldCodes, LPCWSTR parentId,
                                        LPWSTR* continuationPoint, DWORD maxElements, DWORD, DWORD, DWORD, DWORD,
                                        DWORD* moreElements, DWORD* elementCount, BrowseElement** elements,
                                        DWORD* elementCapacity, CStringArray* extra) override;
    CString GetHeaderName() override;
    CString GetInfoTextA() override;
    CString GetInfoTextB() override;
    HRESULT ValidateConsistency(LONG, LONG, LONG, LONG) override;
    HRESULT ReloadAndUpdateSymbols(LONG, LONG) override;
    HRESULT ReOpenDatabase(void** out) override;
    HRESULT GetCountValue(DWORD* value) override;
    LONG GetGeneration() override;
    HRESULT ReservedE(LONG) override;
    HRESULT ReservedF(LONG) override;
    LONG GetConsistencyState() override;
    void SetVerbose(BOOL flag) override;

    // Whether the export file has another time than Init recorded; with `update`
    // the new time is recorded. A file that cannot be tested is reported and
    // counts as unchanged. The caller holds the lock.
    BOOL IsThereNewKdvFile(BOOL update);

    // The %MW, %MD or %M text of a location inside a memory area; empty for any
    // other location and behind a reference. `bit` 0xFF: the whole value.
    void FormatMemoryAddress(std::int32_t indirection, std::uint16_t block, std::uint32_t offset, std::uint8_t bit,
                             std::int32_t size, std::uint32_t typeCode, CString& text) const;

    // The next number for a generated array type name.
    std::uint32_t DrawAnonymousArrayNumber() { return anonymousArrayCounter++; }

    MAPOFDDTDEF& GetTypes() { return types; }
    const MAPOFDDTDEF& GetTypes() const { return types; }
    const Variables& GetVariables() const { return variables; }
    // The variable of that name in any case; null when there is none.
    const CSymbXMLItemDef* FindVariable(const CString& name) const;

    // Sends a message if there is a sink and the message is not for verbose only. The caller holds the lock.
    void SendTrace(const TraceMessage& message, std::initializer_list<CString> arguments) const;
    const CString& GetSourcePath() const { return sourcePath; }

private:
    // Reports an exception that ended a phase; null: it was no standard exception.
    void ReportException(const ExceptionMessages& phase, LPCSTR exceptionText);

    // Loading. The caller of each holds the lock and the import lock.
    bool OpenExport(CImportConnection& connection);
    void ImportExport(CImportConnection& connection);
    void BrowseAllDDTInCMap(WalkSource* source);
    void BrowseAllDFBInCMap(WalkSource* source);
    void BrowseAllItemInCMap(WalkElement* dataBlock);
    void RemoveAllDFBMembers();
    // Puts a variable under its upper-case name in the place of an earlier one, which is destroyed.
    void AddVariable(std::unique_ptr<CSymbXMLItemDef> variable);
    // Writes both dictionaries into the dump directory. False when the file cannot be created. Raises CFileException.
    bool DumpDictionaries();

    // What every lookup and listing does first. The caller holds the lock.
    void CheckForNewFile();

    void ClearDictionaries();

    CString sourcePath;
    CString dumpDirectory;
    CCriticalSection lock{kSymbolTableLockRank};
    CString headerName;
    CString headerVersion;
    CString description;
    std::array<std::uint32_t, 8> projectIdentification{};
    CString contentVersion;
    CTraceSink* traceSink = nullptr; // the host's
    BOOL verbose = FALSE;
    LONG consistencyState;
    std::int32_t fileTime = 0; // the export's modification time, seconds since 1970 UTC; 0: none recorded
    MemoryArea wordArea;       // both stay empty: no export says where the areas lie
    MemoryArea bitArea;
    std::uint32_t anonymousArrayCounter = 0;
    Variables variables; // upper-case name to record, owned
    MAPOFDDTDEF types;
};
