#include "symbkds/frame/TraceMessages.h"

CString FormatTraceMessage(const TraceMessage& message, std::initializer_list<CString> arguments)
{
    constexpr std::size_t kConversionLength = 2;
    std::string_view rest = message.text;
    CString text;
    for (const CString& argument : arguments) {
        const std::size_t conversion = rest.find('%');
        text += CString(rest.data(), static_cast<int>(conversion));
        text += argument;
        rest.remove_prefix(conversion + kConversionLength);
    }
    text += rest.data();
    return text;
}

CString HexResult(HRESULT result)
{
    CString text;
    text.Format("%X", static_cast<unsigned>(result));
    return text;
}

CString DecimalText(int number)
{
    CString text;
    text.Format("%d", number);
    return text;
}
