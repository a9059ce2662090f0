#pragma once

#include "platform/com/Unknown.h"

// The class that the in-process server of the tests serves; in registry form it
// is {0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}.
inline constexpr CLSID CLSID_TestServer = {
    0x0A1B2C3D, 0x4E5F, 0x6071, {0x82, 0x93, 0xA4, 0xB5, 0xC6, 0xD7, 0xE8, 0xF9}};
