#include "platform/com/InprocServerFile.h"

#include "platform/mfc/Conversion.h"
#include "platform/windows/InprocServerKey.h"
#include "platform/windows/Module.h"

std::string InprocServerPlace(REFCLSID clsid)
{
    return "the manifest of the program, the registry's key HKEY_CLASSES_ROOT\\" +
           Narrow(InprocServerKey(clsid), CP_ACP);
}

std::string ModuleFile(const void* address)
{
    return Narrow(ModulePath(address), CP_ACP);
}
