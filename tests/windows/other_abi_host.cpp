// A host of another compiler: built for the C++ conventions of the system's own compilers, without any header of the
// project or of the system. It checks what docs/windows.md promises to such hosts.
//
//   other_abi_host PLUGIN EXPORT      the export is the example plant
//
// Answers 0 when everything is as promised; else prints what is not.
using LONG = long;
using DWORD = unsigned long;
using HRESULT = long;
using LPCSTR = const char*;

extern "C" {
int printf(const char*, ...);
void free(void*);
int strcmp(const char*, const char*);
__declspec(dllimport) void* __stdcall LoadLibraryA(LPCSTR);
__declspec(dllimport) void* __stdcall GetProcAddress(void*, LPCSTR);
__declspec(dllimport) HRESULT __stdcall CoInitializeEx(void*, DWORD);
__declspec(dllimport) HRESULT __stdcall VariantClear(void*);
}

namespace {

int deviations = 0;

void Expect(bool holds, LPCSTR what)
{
    if (holds)
        return;
    ++deviations;
    printf("not as promised: %s\n", what);
}

template <class Value>
Value At(const void* record, int offset)
{
    return *reinterpret_cast<const Value*>(static_cast<const char*>(record) + offset);
}

// CString: a pointer to its bytes; in front of them the number of sharers, the length and the capacity.
class Text
{
public:
    ~Text()
    {
        if (chars && --reinterpret_cast<int*>(chars)[-3] == 0)
            free(chars - 12);
    }
    bool Is(LPCSTR expected, int length) const
    {
        return chars && strcmp(chars, expected) == 0 && reinterpret_cast<int*>(chars)[-2] == length;
    }

private:
    char* chars = nullptr;
};

class Sink
{
public:
    virtual void Trace(LONG level, LPCSTR) { lastLevel = level; }

    LONG lastLevel = 0;
};

// The operations up to the lookup; those that return a text must not be called from here.
class Symb
{
public:
    virtual LONG Init(LPCSTR path, Sink* sink, int verbose, LPCSTR dumpDir, LONG unused) = 0;
    virtual DWORD GetSymbolTableType() = 0;
    virtual void GetDescription() = 0;
    virtual void GetSourceName() = 0;
    virtual HRESULT ReservedA(LONG, LONG, LONG) = 0;
    virtual HRESULT ReservedB(LONG, LONG, LONG, LONG, LONG) = 0;
    virtual HRESULT ReservedC() = 0;
    virtual HRESULT SearchAndGetFF(DWORD selector, LPCSTR name, Text& address, Text& comment, void** descriptor,
                                   DWORD* propertyCount, void** properties) = 0;
};

void CheckLookup(Symb& table)
{
    Text address, comment;
    void *descriptor = nullptr, *properties = nullptr;
    DWORD count = 0;
    const HRESULT found = table.SearchAndGetFF(0, "W1.5", address, comment, &descriptor, &count, &properties);
    Expect(found == 0 && descriptor && properties && count == 7, "the lookup of W1.5");
    if (!descriptor || !properties)
        return;
    Expect(address.Is("%MW10.5", 7) && comment.Is("Steuerwort der Leitwarte", 24), "its texts");
    Expect(At<unsigned short>(descriptor, 12) == 5 && At<DWORD>(descriptor, 16) == 20 &&
               At<unsigned char>(descriptor, 24) == 5,
           "block, offset and bit of its descriptor");
    free(descriptor);

    char* const first = static_cast<char*>(properties);
    Expect(At<DWORD>(first - 4, 0) == count, "the count in front of the properties");
    Expect(At<DWORD>(first, 0) == 5003 && At<LONG>(first, 12) == 5, "the first property");
    Expect(At<DWORD>(first, 60) == 5007 && At<unsigned short>(first, 64) == 8, "the fourth property");
    for (DWORD i = 0; i < count; ++i)
        VariantClear(first + 20 * i + 4);
    free(first - 4);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    CoInitializeEx(nullptr, 0);
    void* const library = LoadLibraryA(argv[1]);
    const auto newSymb = reinterpret_cast<HRESULT(__stdcall*)(Symb**)>(GetProcAddress(library, "_NewSymb@4"));
    const auto deleteSymb = reinterpret_cast<HRESULT(__stdcall*)(Symb*)>(GetProcAddress(library, "_DeleteSymb@4"));
    Symb* table = nullptr;
    if (!newSymb || !deleteSymb || newSymb(&table) != 0 || !table) {
        printf("no symbol table\n");
        return 1;
    }
    Sink sink;
    Expect(table->Init(argv[2], &sink, 1, nullptr, 0) == 0 && sink.lastLevel == 0, "the load of the plant");
    Expect(table->GetSymbolTableType() == 9, "the type code");
    Expect(table->ReservedB(1, 2, 3, 4, 5) == static_cast<HRESULT>(0x80004001), "an operation that is not provided");
    CheckLookup(*table);
    Text address, comment;
    void *descriptor = nullptr, *properties = nullptr;
    DWORD count = 0;
    Expect(table->SearchAndGetFF(0, "NOTHING", address, comment, &descriptor, &count, &properties) == -1,
           "the lookup of what is not there");
    Expect(sink.lastLevel == 2, "the message about it");
    Expect(deleteSymb(table) == 0, "the end of the table");
    return deviations == 0 ? 0 : 1;
}
