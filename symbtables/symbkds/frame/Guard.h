// How failures turn into what a caller sees: the two places where exceptions are caught.
#pragma once

#include "platform/mfc/Exceptions.h"

#include <new>
#include <utility>

// Runs `body`; an allocation that fails in it surfaces as CMemoryException,
// whatever made it, so that it counts as no standard exception.
template <class Body>
decltype(auto) WithMemoryException(Body&& body)
{
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

// Runs `body` and hands an exception to `report`: a standard one with its
// description (empty when it has none), any other with a null pointer. True when there was none.
template <class Body, class Report>
bool RunGuarded(Body&& body, Report&& report)
{
    try {
        WithMemoryException(std::forward<Body>(body));
        return true;
    } catch (const std::exception& exception) {
        const char* description = exception.what();
        report(description ? description : "");
    } catch (...) {
        report(nullptr);
    }
    return false;
}
