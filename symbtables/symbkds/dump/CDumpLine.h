#pragma once

#include "platform/mfc/CStdioFile.h"
#include "platform/mfc/CString.h"

#include <cstdint>
#include <string_view>

// Builds the lines of a dump piece by piece. Each piece goes to the file as it
// comes; a failed write raises CFileException.
class CDumpLine
{
public:
    explicit CDumpLine(CStdioFile& dumpFile) : file(dumpFile) {}

    CDumpLine& Text(std::string_view text)
    {
        file.Write(text);
        return *this;
    }
    CDumpLine& Text(const CString& text) { return Text(text.View()); }
    CDumpLine& Text(LPCSTR text) { return Text(std::string_view(text)); }
    // Without leading zeros.
    CDumpLine& Hex(std::uint32_t number) { return Number(number, "0123456789ABCDEF"); }
    CDumpLine& LowerHex(std::uint32_t number) { return Number(number, "0123456789abcdef"); }
    void End() { file.Write("\n"); }

private:
    CDumpLine& Number(std::uint32_t number, const char* digits)
    {
        constexpr std::uint32_t kBase = 16;
        char text[8];
        char* first = text + sizeof(text);
        do {
            *--first = digits[number % kBase];
            number /= kBase;
        } while (number != 0);
        return Text(std::string_view(first, static_cast<std::size_t>(text + sizeof(text) - first)));
    }

    CStdioFile& file;
};
