// Texts between the plug-in, the command line and the terminal.
#pragma once

#include "platform/mfc/Conversion.h"

#include <string>
#include <string_view>

// Narrow for a null-terminated text; null counts as empty.
std::string NarrowText(LPCWSTR text, UINT codePage);

// A command-line argument (ANSI code page) in UTF-8, as the plug-in wants names.
std::string Utf8FromArgument(const std::string& argument);

// `text` (UTF-8, from anywhere) as one line that does nothing to a terminal:
// control characters, marks that reverse the writing direction and bytes that
// are no UTF-8 are written as escapes such as \n, \x1b or \u202e.
std::string Printable(std::string_view text);

// Whether `text` is nothing but printable ASCII, as most are.
bool IsPlain(std::string_view text);

// `text` with U+FFFD in place of each byte that is no UTF-8.
std::string ValidUtf8(std::string_view text);

// Columns that a printable text takes, one for each code point.
std::size_t DisplayWidth(std::string_view printable);

// The beginning of a printable text, so many columns wide.
std::string FirstCharacters(std::string_view printable, std::size_t columns);

// "0x" and eight upper-case digits.
std::string HexText(DWORD value);
// A result code in the same form.
std::string ResultText(HRESULT result);
