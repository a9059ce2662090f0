#include "symbhost/plugin/Installation.h"

#include "korvaproservices/KorvaProServices.h"
#include "platform/com/ClassObject.h"
#include "platform/com/InprocServerFile.h"
#include "platform/mfc/CInterfacePtr.h"
#include "platform/win32/Library.h"
#include "symb/Version.h"
#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/plugin/CComApartment.h"

#include <filesystem>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

// Without the turns that a path takes which was put together.
std::string Straight(const fs::path& path)
{
    std::error_code error;
    const fs::path straight = fs::weakly_canonical(path, error);
    return error ? path.string() : straight.string();
}

fs::path ProgramFolder()
{
    constexpr std::size_t kLongestPath = 65536;
    for (std::vector<char> path(1024); path.size() <= kLongestPath; path.resize(path.size() * 2)) {
        const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return fs::path(std::string(path.data(), length)).parent_path();
    }
    return {};
}

std::string ComponentFile()
{
    const CComApartment apartment;
    CInterfacePtr<IUnknown> component;
    const HRESULT result =
        CoCreateInstance(CLSID_KorvaProServices, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, component.PutVoid());
    if (FAILED(result))
        throw CHostError(NoComponentText(result));
    // Its table of functions is part of the library that it comes from.
    return Straight(ModuleFile(*reinterpret_cast<const void* const*>(component.Get())));
}

std::string OrFailure(std::string (*find)())
{
    try {
        return find();
    } catch (const CHostError& failure) {
        return std::string("none: ") + failure.what();
    }
}

} // namespace

std::string InstalledPlugin()
{
    constexpr char kFile[] = SHARED_LIBRARY_NAME("symbkds");
    const fs::path folder = ProgramFolder();
    if (std::error_code error; fs::exists(folder / kFile, error))
        return Straight(folder / kFile);
    throw CHostError(std::string("there is no plug-in ") + kFile + " in " + Straight(folder));
}

std::string NoComponentText(HRESULT result)
{
    return "the component that reads exports cannot be created (" + ResultText(result) +
           "); it was looked for here: " + InprocServerPlace(CLSID_KorvaProServices);
}

std::string VersionText()
{
    return "symbhost " SYMBKDS_VERSION "\nplug-in    " + Printable(OrFailure(InstalledPlugin)) + "\ncomponent  " +
           Printable(OrFailure(ComponentFile));
}
