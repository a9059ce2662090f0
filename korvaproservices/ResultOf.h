// No exception leaves an operation of the component: the bodies run in here.
#pragma once

#include "platform/win32/Types.h"

#include <new>

// The result of `body`, or the one that stands for the exception it raised.
template <class Body>
HRESULT ResultOf(Body body) noexcept
{
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

// For an operation with one out argument: stores the text, element or list that
// `make` returns. S_FALSE when that is null; after a failure the argument is null.
template <class Value, class Make>
HRESULT Deliver(Value** out, Make make) noexcept
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    return ResultOf([&] {
        *out = make();
        return *out ? S_OK : S_FALSE;
    });
}
