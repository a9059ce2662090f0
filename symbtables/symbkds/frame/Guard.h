// How failures turn into what a caller sees. The plug-in catches exceptions here and nowhere else, but for a message
// that memory is too short to build (CSymbXml::ReportException).
#pragma once

#include "platform/mfc/Exceptions.h"

#include <exception>
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
// description (empty when it has none), any other with a null pointer. Returns
// the exception, for callers that pass it on; null when there was none.
template <class Body, class Report>
std::exception_ptr RunGuarded(Body&& body, Report&& report)
{
    try {
        WithMemoryException(std::forward<Body>(body));
        return nullptr;
    } catch (const std::exception& exception) {
        const char* description = exception.what();
        report(description ? description : "");
        return std::current_exception();
    } catch (...) {
        report(nullptr);
        return std::current_exception();
    }
}
