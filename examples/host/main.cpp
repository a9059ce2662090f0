// A host: loads an export and tells where one symbol lies.
//
//   host EXPORT SYMBOL [PLUG-IN]      without PLUG-IN the one that lies with the libraries of this program
#include "symb/Host.h"

#include <cstdlib>
#include <iostream>
#include <string>

struct CMessages : CTraceSink
{
    void Trace(LONG, LPCSTR text) override { std::cerr << text << '\n'; }
};

int Fail(const std::string& sentence, int status = 2)
{
    std::cerr << "host: " << sentence << ".\n";
    return status;
}

int TellPlace(CSymb& symbols, const std::string& name)
{
    CString address, comment;
    AddressDescriptor* place = nullptr;
    PropertyEntry* properties = nullptr;
    DWORD propertyCount = 0;
    if (symbols.SearchAndGetFF(0, name.c_str(), address, comment, &place, &propertyCount, &properties) != S_OK)
        return Fail("The export serves no symbol " + name, 1);
    std::cout << "block " << place->block << ", byte " << place->offset << ", " << place->size << " bytes\n";
    std::free(place);
    delete[] properties;
    return 0;
}

int main(int argc, char** argv)
{
    if (argc < 3)
        return Fail("Give an export and a symbol");
    if (FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)))
        return Fail("COM cannot be initialised on this thread");
    const std::string plugin = argc > 3 ? argv[3] : SHARED_LIBRARY_NAME("symbkds");
    HMODULE library = LoadLibraryA(plugin.c_str());
    if (!library)
        return Fail("The plug-in " + plugin + " cannot be loaded, error " + std::to_string(GetLastError()));
    auto newSymb = reinterpret_cast<NewSymbFunction>(GetProcAddress(library, kNewSymbExport));
    auto deleteSymb = reinterpret_cast<DeleteSymbFunction>(GetProcAddress(library, kDeleteSymbExport));
    CMessages messages;
    CSymb* symbols = nullptr;
    if (!newSymb || !deleteSymb || FAILED(newSymb(&symbols)))
        return Fail(plugin + " makes no symbol table");

    const bool isLoaded = symbols->Init(argv[1], &messages, FALSE, nullptr, 0) == 0;
    const int status =
        isLoaded ? TellPlace(*symbols, argv[2]) : Fail(std::string("The export ") + argv[1] + " cannot be loaded");
    deleteSymb(symbols);
    FreeLibrary(library);
    CoUninitialize();
    return status;
}
