#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CInterfacePtr.h"

// The component and what Init takes from it. Nothing of it outlives Init.
//
// Members are released in the reverse order of their declaration, also by Release.
struct CImportConnection
{
    void Release() noexcept
    {
        dataBlock.Release();
        walkSource.Release();
        importSource.Release();
        component.Release();
    }

    CInterfacePtr<IUnknown> component;
    CInterfacePtr<ImportSource> importSource;
    CInterfacePtr<WalkSource> walkSource;
    CInterfacePtr<WalkElement> dataBlock; // null when the export has none
};
