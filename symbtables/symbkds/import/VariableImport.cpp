// Fills the variable dictionary from the dataBlock element of an export.
#include "platform/mfc/CSingleLock.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/import/ElementReader.h"
#include "symbkds/model/AccessRights.h"
#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/WideToUtf8.h"

#include <array>

namespace {

constexpr std::int32_t kNoExtractBitNumber = -1; // its low 8 bits say "no bit"

// Creates records from elements of the export.
class CVariableReader
{
public:
    CVariableReader(MAPOFDDTDEF& dictionary, const ExportKeys& exportKeys) : keys(exportKeys), types(dictionary) {}

    // The variable that an element describes; null when it has no name or no known type.
    std::unique_ptr<CSymbXMLItemDef> Read(WalkElement& element)
    {
        auto variable = std::make_unique<CSymbXMLItemDef>();
        CBstr wideName;
        CBstr wideTypeName;
        CBstr wideAddress;
        CBstr wideComment;
        // Whatever a call does not deliver stays empty.
        element.GetAttribute(keys.name.Get(), wideName.Put());
        element.GetAttribute(keys.typeName.Get(), wideTypeName.Put());
        element.GetAttribute(keys.topologicalAddress.Get(), wideAddress.Put());
        element.GetChildText(keys.comment.Get(), wideComment.Put());
        variable->name = WideToUtf8(wideName.Get());
        if (variable->name.IsEmpty())
            return nullptr;
        ReadProperties(element, *variable);
        if (!SetType(*variable, WideToUtf8(wideTypeName.Get())))
            return nullptr;
        variable->comment = WideToUtf8(wideComment.Get());
        variable->topologicalAddress = static_cast<LPCWSTR>(wideAddress.Get());
        return variable;
    }

private:
    void ReadProperties(WalkElement& element, CSymbXMLItemDef& variable) const
    {
        variable.block = static_cast<std::uint16_t>(ReadProperty(element, keys, keys.areaBlock).Number(0));
        variable.offset = static_cast<std::uint32_t>(ReadProperty(element, keys, keys.areaOffset).Number(0));
        variable.size = static_cast<std::uint32_t>(ReadProperty(element, keys, keys.size).Number(0));
        variable.extractBit =
            static_cast<std::uint8_t>(ReadProperty(element, keys, keys.extractBit).Number(kNoExtractBitNumber));
        constexpr PropertyRules kAllOk{.list = Counts::AfterOk, .element = Counts::AfterOk};
        const PropertyRead customer = ReadProperty(element, keys, keys.customerString, kAllOk);
        variable.customerString = WideToUtf8(customer.value.Get());
        // A look-up that fails counts as one without an element, so that one variable does not depend on another.
        const PropertyRead rights = ReadProperty(element, keys, keys.requestAccessRight, kAllOk);
        variable.accessRights = rights.allOk ? AccessRightsFrom(rights.Number(0)) : kReadWrite;
    }

    bool SetType(CSymbXMLItemDef& variable, CString typeName)
    {
        if (IsElementary(typeName)) {
            variable.SetTypeName(Shared(typeName), &types);
            return true;
        }
        CSymbXMLDDTDef* definition = nullptr;
        if (!types.FindTypeDef(typeName, definition))
            return false;
        variable.SetTypeName(definition->name, &types);
        variable.SetDeclaredTypeText(definition->GetDisplayName());
        return true;
    }

    // The text of a variable before that has the same elementary type: one text serves them all.
    const CString& Shared(const CString& typeName)
    {
        CString& known = elementaryNames[ElementaryRowOf(*FindElementaryType(typeName.View(), NameCase::Exact))];
        if (known != typeName)
            known = typeName;
        return known;
    }

    const ExportKeys& keys;
    MAPOFDDTDEF& types;
    std::array<CString, kElementaryTypeCount> elementaryNames; // the last one met of each: STRING[n] has many
};

} // namespace

void CSymbXml::BrowseAllItemInCMap(WalkElement* dataBlock)
{
    const CSingleLock guard(&lock, TRUE);
    const auto import = [&] {
        if (!dataBlock)
            AfxThrowOleException(E_POINTER);
        const ExportKeys keys;
        CVariableReader reader(types, keys);
        CInterfacePtr<WalkList> list;
        LONG count = 0;
        if (dataBlock->GetChildrenByName(keys.variables.Get(), list.Put()) != S_OK || !list ||
            list->Count(&count) != S_OK)
            return;
        ForEachItem(*list.Get(), count, [&](WalkElement& element) {
            if (std::unique_ptr<CSymbXMLItemDef> variable = reader.Read(element))
                AddVariable(std::move(variable));
        });
    };
    RunGuarded(import, [this](LPCSTR text) { ReportException(messages::kVariableImportException, text); });
}

void CSymbXml::AddVariable(std::unique_ptr<CSymbXMLItemDef> variable)
{
    CString key = variable->name;
    key.MakeUpper();
    CSymbXMLItemDef*& present = variables[key]; // may fail, so it comes first
    delete std::exchange(present, variable.release());
}
