#include "korvaproservices/TextPosition.h"

#include "korvaproservices/Encoding.h"

TextPosition PositionAt(std::string_view utf8, std::size_t offset)
{
    TextPosition position{1, 1};
    for (std::size_t i = utf8.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0; i < offset && i < utf8.size(); ++i) {
        const bool endsLine = utf8[i] == '\n' || (utf8[i] == '\r' && !utf8.substr(i + 1).starts_with('\n'));
        const bool continues = (static_cast<unsigned char>(utf8[i]) & 0xC0) == 0x80;
        if (endsLine)
            position = {position.line + 1, 1};
        else if (!continues)
            ++position.column;
    }
    return position;
}
