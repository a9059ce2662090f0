#include "symbhost/exports/ElementReading.h"

#include "symbkds/model/AccessRights.h"
#include "symbkds/model/TextNumber.h"
#include "symbkds/model/WideToUtf8.h"

#include "platform/mfc/Conversion.h"
#include "platform/win32/CodePage.h"

#include <algorithm>

namespace {

// Takes texts over and notes in `record` what became of them.
template <class Record>
class CTextTaker
{
public:
    explicit CTextTaker(Record& taker) : record(taker) {}

    std::string Take(const CBstr& text) const
    {
        const CString kept = WideToUtf8(text.Get());
        Note(text);
        const bool mayBeCut = text.Length() * 3 > static_cast<unsigned>(kMaxUtf8Bytes);
        if (mayBeCut && Narrow({text.Get(), text.Length()}, CP_UTF8).size() > static_cast<std::size_t>(kMaxUtf8Bytes))
            record.hasCutText = true;
        return std::string(kept.View());
    }
    // A text that the plug-in keeps whole.
    std::string TakeWhole(const CBstr& text) const
    {
        Note(text);
        return Narrow({text.Get(), text.Length()}, CP_UTF8);
    }

private:
    void Note(const CBstr& text) const
    {
        constexpr WCHAR kReplacement = 0xFFFD;
        if (std::count(text.Get(), text.Get() + text.Length(), kReplacement) != 0)
            record.hasReplacedText = true;
    }

    Record& record;
};

// Empty when the component does not deliver it.
CBstr Attribute(WalkElement& element, const CBstr& name)
{
    CBstr text;
    element.GetAttribute(name.Get(), text.Put());
    return text;
}

// What the plug-in keeps of it.
std::string KeptAttribute(WalkElement& element, const CBstr& name)
{
    return std::string(WideToUtf8(Attribute(element, name).Get()).View());
}

CInterfacePtr<WalkElement> FirstChild(WalkElement& element, const CBstr& tag)
{
    CInterfacePtr<WalkList> list;
    CInterfacePtr<WalkElement> child;
    if (element.GetChildrenByName(tag.Get(), list.Put()) == S_OK && list)
        list->Next(child.Put());
    return child;
}

} // namespace

std::uint16_t ExportItem::AccessRights() const
{
    return accessRight ? AccessRightsFrom(*accessRight) : kReadWrite;
}

bool CElementReader::Property(WalkElement& element, const CBstr& key, CBstr& text) const
{
    CInterfacePtr<WalkList> list;
    CInterfacePtr<WalkElement> property;
    if (element.SelectChildren(keys.attribute.Get(), keys.name.Get(), key.Get(), list.Put()) == S_OK && list)
        list->Next(property.Put());
    if (property)
        text = Attribute(*property.Get(), keys.value);
    return static_cast<bool>(property);
}

ExportNumber CElementReader::Number(WalkElement& element, const CBstr& key) const
{
    CBstr text;
    return Property(element, key, text) ? ExportNumber(ParseNumber(text.Get())) : std::nullopt;
}

ExportItem CElementReader::ReadItem(WalkElement& element) const
{
    ExportItem item;
    const CTextTaker texts(item);
    item.name = texts.Take(Attribute(element, keys.name));
    item.typeName = texts.Take(Attribute(element, keys.typeName));
    item.address = texts.TakeWhole(Attribute(element, keys.topologicalAddress));
    CBstr commentText;
    element.GetChildText(keys.comment.Get(), commentText.Put()); // a failure leaves it empty
    item.comment = texts.Take(commentText);
    CBstr customerText;
    Property(element, keys.customerString, customerText);
    item.customerString = texts.Take(customerText);
    item.block = Number(element, keys.areaBlock);
    item.offset = Number(element, keys.areaOffset);
    item.size = Number(element, keys.size);
    item.bit = Number(element, keys.extractBit);
    item.accessRight = Number(element, keys.requestAccessRight);
    item.hidden = Number(element, keys.isVariableHidden);
    return item;
}

std::string CElementReader::ReadName(WalkElement& element) const
{
    return KeptAttribute(element, keys.name);
}

std::string CElementReader::ReadTypeName(WalkElement& element) const
{
    return KeptAttribute(element, keys.typeName);
}

ExportSection CElementReader::ReadSection(WalkElement& element) const
{
    ExportSection section;
    CBstr tag;
    element.GetTagName(tag.Put());
    section.tag = WideToUtf8(tag.Get()).View();
    CInterfacePtr<WalkList> list;
    element.GetChildren(list.Put());
    ForEachElement(list.Get(), [&](WalkElement& member) { section.members.push_back(ReadItem(member)); });
    return section;
}

ExportType CElementReader::ReadDerivedType(WalkElement& source) const
{
    ExportType type;
    const CTextTaker texts(type);
    type.name = texts.Take(Attribute(source, keys.derivedTypeName));
    if (const CInterfacePtr<WalkElement> array = FirstChild(source, keys.array)) {
        type.kind = ExportType::Kind::Array;
        CBstr declaration;
        array->GetText(declaration.Put());
        type.declaration = texts.Take(declaration);
    } else if (const CInterfacePtr<WalkElement> structure = FirstChild(source, keys.structure)) {
        type.sections.push_back(ReadSection(*structure.Get()));
    }
    return type;
}

ExportType CElementReader::ReadFunctionBlock(WalkElement& source) const
{
    ExportType type;
    type.kind = ExportType::Kind::FunctionBlock;
    type.name = CTextTaker(type).Take(Attribute(source, keys.functionBlockName));
    CInterfacePtr<WalkList> list;
    source.GetChildren(list.Put());
    ForEachElement(list.Get(), [&](WalkElement& section) { type.sections.push_back(ReadSection(section)); });
    return type;
}
