#include "korvaproservices/CModuleReference.h"

#include <atomic>

namespace {

std::atomic<long> objectCount{0};

} // namespace

CModuleReference::CModuleReference() noexcept
{
    ++objectCount;
}

CModuleReference::~CModuleReference()
{
    --objectCount;
}

bool CModuleReference::Exists() noexcept
{
    return objectCount != 0;
}
