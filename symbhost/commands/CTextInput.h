#pragma once

#include <istream>
#include <optional>
#include <string>

// Characters of a text in UTF-8, whatever it is written in: UTF-8 or UTF-16, with or without a byte order mark.
// Reads no further than it must, so that lines typed by hand are answered one by one.
class CTextInput
{
public:
    explicit CTextInput(std::istream& source) : input(source) {}

    // The next byte of UTF-8; nothing at the end.
    std::optional<char> Next();

private:
    void Begin();
    std::optional<unsigned> NextByte();
    std::optional<char16_t> NextUnit();
    void Decode(char16_t unit);

    std::istream& input;
    std::string pending; // bytes to be handed out, from `handedOut` on
    std::size_t handedOut = 0;
    std::optional<char16_t> keptUnit; // read, but behind a surrogate that has no partner
    enum class Form
    {
        NotKnown,
        Utf8,
        LittleEndian,
        BigEndian
    } form = Form::NotKnown;
};
