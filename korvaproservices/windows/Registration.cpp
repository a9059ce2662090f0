// The entry points by which regsvr32 registers the component and takes it back.
#include "korvaproservices/KorvaProServices.h"
#include "korvaproservices/ResultOf.h"
#include "platform/windows/InprocServerKey.h"

STDAPI_EXPORT DllRegisterServer()
{
    return ResultOf([] { return RegisterInprocServer(CLSID_KorvaProServices, L"KorvaPro project services"); });
}

STDAPI_EXPORT DllUnregisterServer()
{
    return ResultOf([] { return UnregisterInprocServer(CLSID_KorvaProServices); });
}
