#include "symbkds/import/ElementReader.h"

#include "symbkds/model/TextNumber.h"
#include "symbkds/model/WideToUtf8.h"

CString ReadAttribute(WalkElement& element, const CBstr& attribute)
{
    CBstr text;
    element.GetAttribute(attribute.Get(), text.Put()); // a failure leaves the text empty
    return WideToUtf8(text.Get());
}

CString ReadChildText(WalkElement& element, const CBstr& tag)
{
    CBstr text;
    element.GetChildText(tag.Get(), text.Put()); // a failure leaves the text empty
    return WideToUtf8(text.Get());
}

std::int32_t PropertyRead::Number(std::int32_t missing) const
{
    return hasElement ? ParseNumber(value.Get()) : missing;
}

PropertyRead ReadProperty(WalkElement& element, const ExportKeys& keys, const CBstr& key, PropertyRules rules)
{
    const auto counts = [](HRESULT result, Counts rule) { return result == S_OK || rule == Counts::Delivered; };
    PropertyRead read;
    CInterfacePtr<WalkList> list;
    read.result = element.SelectChildren(keys.attribute.Get(), keys.name.Get(), key.Get(), list.Put());
    read.hasList = list && counts(read.result, rules.list);
    if (!read.hasList)
        return read;
    CInterfacePtr<WalkElement> property;
    read.result = list->Next(property.Put());
    const bool nextOk = read.result == S_OK;
    read.hasElement = property && counts(read.result, rules.element);
    if (!read.hasElement)
        return read;
    read.result = property->GetAttribute(keys.value.Get(), read.value.Put());
    read.allOk = nextOk && read.result == S_OK;
    return read;
}
