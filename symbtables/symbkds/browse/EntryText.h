// Entry texts.
#pragma once

#include "platform/mfc/CString.h"

#include <cstdint>
#include <string_view>

// A symbol's name, and for each field code "|" and the field's text: 'A' the
// address, 'C' the comment, any other code nothing.
CString MakeEntryText(const CString& name, std::string_view fieldCodes, const CString& comment, const CString& address);

// An entry as it comes back from a host as a continuation point: cut to the whole characters that fit.
CString AsContinuationPoint(const CString& entry);

// The address text of a member, parameter or element, which has no address of its own.
CString MakeUnlocatedField(const CString& typeName, std::uint32_t block, std::uint32_t offset,
                           const CString& addressText);
