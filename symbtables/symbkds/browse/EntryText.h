// Entry texts.
#pragma once

#include "platform/mfc/CString.h"

#include <cstdint>
#include <string_view>

// A symbol's name, and for each field code "|" and the field's text: 'A' the
// address, 'C' the comment, any other code nothing. Takes no more memory than the text needs.
CString MakeEntryText(const CString& name, std::string_view fieldCodes, const CString& comment, const CString& address);

// The address text of a member, parameter or element, which has no address of its own.
CString MakeUnlocatedField(const CString& typeName, std::uint32_t block, std::uint32_t offset,
                           const CString& addressText);
