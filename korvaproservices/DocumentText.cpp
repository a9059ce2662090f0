#include "korvaproservices/DocumentText.h"

#include "platform/mfc/Conversion.h"
#include "platform/win32/CodePage.h"

#include <new>

BSTR BstrOf(const char* text)
{
    BSTR made = MakeBstr(text, CP_UTF8);
    if (!made)
        throw std::bad_alloc();
    return made;
}

bool EqualsConverted(const char* utf8, std::basic_string_view<OLECHAR> utf16)
{
    return Narrow(utf16, CP_UTF8) == utf8; // false for one with a null, which no text of the document has
}
