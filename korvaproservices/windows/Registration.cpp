// The entry points by which regsvr32 registers the component and takes it back.
#include "korvaproservices/Guarded.h"
#include "korvaproservices/KorvaProServices.h"
#include "platform/windows/InprocServerKey.h"

STDAPI_EXPORT DllRegisterServer()
{
    return Guarded([] { return RegisterInprocServer(CLSID_KorvaProServices, L"KorvaPro project services"); });
}

STDAPI_EXPORT DllUnregisterServer()
{
    return Guarded([] { return UnregisterInprocServer(CLSID_KorvaProServices); });
}
