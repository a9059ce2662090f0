// Texts cross the interfaces in UTF-16 and stand in the document in UTF-8.
#pragma once

#include "platform/com/Bstr.h"

#include <string>

// A new text from UTF-8; each ill-formed sequence becomes U+FFFD. Never null:
// raises std::bad_alloc when memory is short.
BSTR MakeBstr(const char* text);

// Stores `text`, null counting as empty, in `utf8`, which keeps its memory
// between uses. What cannot stand in a document (a null unit, half a surrogate
// pair) is replaced and then equals no text of a well-formed one.
void AssignUtf8(std::string& utf8, BSTR text);

std::string ToUtf8(BSTR text);
