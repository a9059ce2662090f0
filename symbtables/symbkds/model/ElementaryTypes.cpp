#include "symbkds/model/ElementaryTypes.h"

#include "platform/mfc/COleVariant.h"
#include "platform/win32/CodePage.h"
#include "symbkds/model/CUpperName.h"
#include "symbkds/model/TextNumber.h"
#include "symbkds/model/TypeCodes.h"

#include <algorithm>

namespace {

constexpr std::string_view kSizedStringPrefix = "STRING[";
constexpr std::size_t kStringRow = 3;

// clang-format off
constexpr ElementaryType kTypes[] = {
    // name     code       size varType  array code  array   member  definition
    {"BOOL",    kBoolCode,  1, VT_BOOL, 0x02291088, 0x200B, 0x200B, 0x02291088},
    {"EBOOL",   kEBoolCode, 1, VT_BOOL, 0x04291088, 0x200B, 0x200B, 0x04291088},
    {"BYTE",    0x01290148, 1, VT_UI1,  0,          0,      0,      kStructuredCode},
    {"STRING",  0x00120148, 16, VT_UI1, 0,          0,      0,      kStructuredCode},
    {"WSTRING", 0x00220148, 2, VT_UI2,  0,          0,      0,      0x22591088},
    {"UINT",    kUIntCode,  2, VT_UI2,  0x22591088, 0x2012, 0x2012, 0x22591088},
    {"UDINT",   0x12590148, 4, VT_UI4,  0x12591088, 0x2013, 0x2013, 0x12591088},
    {"DINT",    0x06590148, 4, VT_I4,   0x06591088, 0x2003, 0x2013, 0x06591088},
    {"DWORD",   0x00690148, 4, VT_UI4,  0x00691088, 0x2013, 0x2013, 0x12591088},
    {"TOD",     0x04040148, 4, VT_UI4,  0,          0,      0,      0x12591088},
    {"TIME",    0x00910148, 4, VT_UI4,  0,          0,      0,      0x12591088},
    {"DATE",    0x02040148, 4, VT_UI4,  0,          0,      0,      0x12591088},
    {"INT",     kIntCode,   2, VT_I2,   0x0A591088, 0x2002, 0x2012, 0x0A591088},
    {"REAL",    0x05510148, 4, VT_R4,   0x05511088, 0x2004, 0x2013, 0x05511088},
    {"DT",      0x01040148, 8, VT_R8,   0,          0,      0,      kStructuredCode},
    {"WORD",    kWordCode,  2, VT_UI2,  0x00A91088, 0x2012, 0x2012, 0x22591088},
};
// clang-format on
static_assert(kTypes[kStringRow].name == "STRING");
static_assert(std::size(kTypes) == kElementaryTypeCount);

bool SameName(std::string_view text, std::string_view upperName, NameCase nameCase)
{
    if (text.size() != upperName.size())
        return false;
    if (nameCase == NameCase::Exact)
        return text == upperName;
    return std::equal(text.begin(), text.end(), upperName.begin(), [](char a, char b) { return Upper(a) == b; });
}

struct KindMask
{
    std::uint32_t mask;
    LPCSTR name;
};

// The first mask whose bits are all set names the kind.
constexpr KindMask kKinds[] = {
    {0x0888, "ANONYMOUS ARRAY"}, {0x0088, "ARRAY DDT"}, {0x0248, "STRUCT DDT"}, {0x0148, "EDT"},
    {0x0448, "IODDT"},           {0x10050, "DFB"},      {0x20050, "EFB"},
};

} // namespace

const ElementaryType* FindElementaryType(std::string_view name, NameCase nameCase)
{
    for (const ElementaryType& type : kTypes)
        if (SameName(name, type.name, nameCase))
            return &type;
    const std::string_view prefix = name.substr(0, kSizedStringPrefix.size());
    return SameName(prefix, kSizedStringPrefix, nameCase) ? &kTypes[kStringRow] : nullptr;
}

std::size_t ElementaryRowOf(const ElementaryType& type)
{
    return static_cast<std::size_t>(&type - kTypes);
}

const ElementaryType* FindElementaryTypeByCode(std::uint32_t typeCode)
{
    const auto* found = std::ranges::find(kTypes, typeCode, &ElementaryType::typeCode);
    return found == std::end(kTypes) ? nullptr : found;
}

bool ClassifyElementaryType(CString& typeName, std::uint32_t& sizeBytes, std::uint32_t& typeCode)
{
    typeName.MakeUpper();
    const std::string_view name = typeName.View();
    const ElementaryType* type = FindElementaryType(name, NameCase::Exact);
    if (!type) {
        typeCode = kUnclassifiedCode;
        return false;
    }
    typeCode = type->typeCode;
    const bool sized = name.starts_with(kSizedStringPrefix);
    // A length that makes no sense leaves nothing to read or write.
    sizeBytes = sized ? static_cast<std::uint32_t>(std::max(0, ParseNumber(name.data() + kSizedStringPrefix.size())))
                      : type->sizeBytes;
    return true;
}

bool IsElementary(CString& typeName)
{
    return ElementaryCodeOf(typeName) != kUnclassifiedCode;
}

std::uint32_t ElementaryCodeOf(CString& typeName)
{
    std::uint32_t sizeBytes = 0;
    std::uint32_t typeCode = 0;
    ClassifyElementaryType(typeName, sizeBytes, typeCode);
    return typeCode;
}

LPCSTR KindName(std::uint32_t typeCode)
{
    for (const KindMask& kind : kKinds)
        if ((typeCode & kind.mask) == kind.mask)
            return kind.name;
    return "Unknown";
}

void GetKindName(std::uint32_t typeCode, VARIANT& kindName)
{
    COleVariant text(KindName(typeCode), CP_THREAD_ACP);
    VariantClear(&kindName);
    kindName = text.Detach();
}
