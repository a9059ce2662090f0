#include "symbkds/model/ArrayDeclaration.h"

#include "symbkds/model/TextNumber.h"

namespace {

constexpr LPCSTR kElementKeyword = " OF ";
constexpr int kElementKeywordLength = 4;

// Reads "lower..upper" at `text` and leaves `text` behind it.
bool ReadBounds(const char*& text, ArrayBounds& bounds)
{
    const char* position = text;
    if (!ReadNumber(position, bounds.lower) || position[0] != '.' || position[1] != '.')
        return false;
    position += 2;
    if (!ReadNumber(position, bounds.upper))
        return false;
    text = position;
    return true;
}

CString ElementTypeNameOf(const CString& text)
{
    CString upper = text;
    upper.MakeUpper();
    const int keyword = upper.Find(kElementKeyword);
    return keyword < 0 ? CString() : text.Mid(keyword + kElementKeywordLength);
}

} // namespace

std::uint32_t ArrayBounds::ElementCount() const
{
    const std::int64_t count = std::int64_t{upper} - lower + 1;
    return count > 0 && count <= std::int64_t{UINT32_MAX} ? static_cast<std::uint32_t>(count) : 0;
}

ArrayDeclaration::ArrayDeclaration(const ArrayBounds& dimension, const CString& elementType)
    : elementTypeName(elementType), bounds{dimension}, dimensionCount(1)
{}

ArrayDeclaration::ArrayDeclaration(const CString& text) : elementTypeName(ElementTypeNameOf(text))
{
    const char* position = static_cast<LPCSTR>(text) + (text.Find('[') + 1);
    ArrayBounds dimension;
    while (*position != ']') {
        if (*position == ',')
            ++position;
        if (!ReadBounds(position, dimension))
            break;
        tooManyDimensions = dimensionCount == kMaxDimensions;
        if (tooManyDimensions)
            break;
        bounds[static_cast<std::size_t>(dimensionCount)] = dimension;
        ++dimensionCount;
    }
}
