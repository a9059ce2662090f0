// The encodings of exports.
#pragma once

#include "korvaproservices/CExportBytes.h"

#include <string_view>

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF"; // byte order mark
inline constexpr std::string_view kBlanks = " \t\r\n";

enum class Encoding
{
    Utf8,
    Utf16LittleEndian,
    Utf16BigEndian,
    Utf32LittleEndian,
    Utf32BigEndian,
    Latin1
};

// As an XML declaration would spell it.
const char* NameOf(Encoding encoding);

// By the byte order mark, else by the "<" that the text begins with, else by an XML declaration that names ISO-8859-1;
// otherwise UTF-8.
Encoding RecogniseEncoding(std::string_view bytes);

// The encoding that the XML declaration names; empty when there is none. A byte order mark may stand in front.
std::string_view DeclaredEncoding(std::string_view utf8);

// Replaces text in `encoding` by UTF-8, the byte order mark included; what is no character becomes U+FFFD. Leaves UTF-8
// as it is. May raise std::bad_alloc.
void ConvertToUtf8(CExportBytes& bytes, Encoding encoding);
