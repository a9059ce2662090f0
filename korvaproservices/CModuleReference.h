#pragma once

// Keeps the component's library loaded: the component and every document hold
// one, elements and lists hold their document. A Release that destroys one of them
// holds another until it returns, so that the count drops when nothing is left to
// run but the returns; those are covered by the delay with which COM unloads.
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
