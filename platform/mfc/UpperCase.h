#pragma once

// The upper case of names: a to z become A to Z, other bytes stay.
constexpr char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
