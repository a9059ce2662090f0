#pragma once

#include "platform/mfc/CString.h"

// The longest text that WideToUtf8 yields, in bytes.
constexpr int kMaxUtf8Bytes = 1023;

// UTF-8 of a null-terminated UTF-16 text, null counting as empty. A longer text
// is cut to the whole characters that fit into kMaxUtf8Bytes.
CString WideToUtf8(LPCWSTR text);
