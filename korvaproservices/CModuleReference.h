#pragma once

// Keeps the component's library loaded: every living object holds one.
class CModuleReference
{
public:
    CModuleReference() noexcept;
    CModuleReference(const CModuleReference&) = delete;
    CModuleReference& operator=(const CModuleReference&) = delete;
    ~CModuleReference();

    // Whether there is any.
    static bool Exists() noexcept;
};
