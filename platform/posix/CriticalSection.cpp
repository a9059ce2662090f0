#include "platform/win32/CriticalSection.h"

#include <cstdlib>

namespace {

// A lock that is not held although the caller goes on would corrupt what it guards.
void MustSucceed(int error)
{
    if (error != 0)
        std::abort();
}

} // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section)
{
    pthread_mutexattr_t attributes;
    MustSucceed(pthread_mutexattr_init(&attributes));
    MustSucceed(pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE));
    MustSucceed(pthread_mutex_init(&section->mutex, &attributes));
    pthread_mutexattr_destroy(&attributes);
}

void DeleteCriticalSection(CRITICAL_SECTION* section)
{
    pthread_mutex_destroy(&section->mutex);
}

void EnterCriticalSection(CRITICAL_SECTION* section)
{
    MustSucceed(pthread_mutex_lock(&section->mutex));
}

void LeaveCriticalSection(CRITICAL_SECTION* section)
{
    MustSucceed(pthread_mutex_unlock(&section->mutex));
}
