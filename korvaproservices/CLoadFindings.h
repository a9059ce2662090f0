#pragma once

#include "korvaproservices/TextPosition.h"

#include <string>

// What one attempt to load an export found out besides its result.
struct CLoadFindings
{
    std::string declaredEncoding; // by the XML declaration; empty: by none
    const char* usedEncoding = "";
    const char* fault = ""; // why the text is not well-formed; empty: it is, or was not read
    TextPosition position;  // of the fault
};
