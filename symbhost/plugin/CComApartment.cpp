#include "symbhost/plugin/CComApartment.h"

#include "platform/com/ClassObject.h"
#include "symbhost/Failure.h"
#include "symbhost/Text.h"

CComApartment::CComApartment()
{
    if (const HRESULT result = CoInitializeEx(nullptr, COINIT_MULTITHREADED); FAILED(result))
        throw CHostError("COM cannot be initialised: " + ResultText(result));
}

CComApartment::~CComApartment()
{
    CoUninitialize();
}
