#pragma once

#include "platform/mfc/CString.h"
#include "platform/mfc/UpperCase.h"

#include <algorithm>

// Names are found in any case. The upper-case form of a name, as a key to look up, without an allocation unless the
// name is unusually long.
class CUpperName
{
public:
    // Raises CMemoryException when memory is short.
    explicit CUpperName(const CString& name)
    {
        const std::string_view text = name.View();
        if (text.size() < sizeof shortForm) {
            *std::transform(text.begin(), text.end(), shortForm, Upper) = '\0';
            return;
        }
        longForm = name;
        longForm.MakeUpper();
    }

    operator LPCSTR() const { return longForm.IsEmpty() ? shortForm : static_cast<LPCSTR>(longForm); }

private:
    char shortForm[64];
    CString longForm;
};
