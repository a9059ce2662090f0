#pragma once

// Keeps the component's library loaded: it may be unloaded only while no object
// of it and no lock of its class object exists.
class CModuleReference
{
public:
    CModuleReference() noexcept;
    CModuleReference(const CModuleReference&) = delete;
    CModuleReference& operator=(const CModuleReference&) = delete;
    ~CModuleReference();
};
