// Registers the structure and array types of an export.
#include "platform/mfc/CSingleLock.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/import/MemberReader.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/ImportRules.h"
#include "symbkds/model/WideToUtf8.h"

namespace {

class CDDTReader
{
public:
    CDDTReader(MAPOFDDTDEF& dictionary, const ExportKeys& exportKeys) : keys(exportKeys), types(dictionary) {}

    // Registers the type that a DDTSource element describes, if it describes one.
    void Read(WalkElement& source)
    {
        const CString name = ReadAttribute(source, keys.derivedTypeName);
        CInterfacePtr<WalkElement> array;
        FirstChild(source, keys.array, array);
        if (array)
            ReadArray(*array.Get(), name);
        else
            ReadStructure(source, name);
    }

private:
    // The first child called `tag`; returns the last call's result.
    static HRESULT FirstChild(WalkElement& element, const CBstr& tag, CInterfacePtr<WalkElement>& child)
    {
        CInterfacePtr<WalkList> list;
        const HRESULT result = element.GetChildrenByName(tag.Get(), list.Put());
        return result == S_OK && list ? list->Next(child.Put()) : result;
    }

    void ReadArray(WalkElement& element, const CString& name)
    {
        CBstr text;
        element.GetText(text.Put()); // a failure leaves a declaration without dimensions
        const ArrayDeclaration declaration(WideToUtf8(text.Get()));
        if (!declaration.MakesType())
            return;
        auto array = std::make_unique<CSymbXMLDDTArrayDef>(name, declaration);
        if (array->dimensionCount == 1)
            types.AddTypeDef(name, std::move(array));
        else
            types.AddArrayChain(*array, &name);
    }

    void ReadStructure(WalkElement& source, const CString& name)
    {
        auto structure = std::make_unique<CSymbXMLDDTStructDef>();
        structure->name = name;
        CInterfacePtr<WalkElement> element;
        CInterfacePtr<WalkList> list;
        if (FirstChild(source, keys.structure, element) == S_OK && element &&
            element->GetChildren(list.Put()) == S_OK && list)
            ReadMembers(*list.Get(), structure->members);
        if (IsStructureKept(name.View(), structure->members.GetCount() > 0))
            types.AddTypeDef(name, std::move(structure));
    }

    void ReadMembers(WalkList& list, CMemberList& members)
    {
        CInterfacePtr<WalkElement> element;
        while (SUCCEEDED(list.Next(element.Put())) && element)
            members.Add(ReadStructureMember(*element.Get(), keys, types));
    }

    const ExportKeys& keys;
    MAPOFDDTDEF& types;
};

} // namespace

void CSymbXml::BrowseAllDDTInCMap(WalkSource* source)
{
    const CSingleLock guard(&lock, TRUE);
    const auto import = [&] {
        const ExportKeys keys;
        CDDTReader reader(types, keys);
        CInterfacePtr<WalkList> list;
        if (source->GetElementList(keys.derivedType.Get(), list.Put()) != S_OK || !list)
            return;
        LONG count = 0;
        if (FAILED(list->Count(&count)))
            count = 0;
        ForEachItem(*list.Get(), count, [&](WalkElement& element) {
            reader.Read(element);
            types.DropDisplaced(); // nobody stands on a definition between two types
        });
    };
    RunGuarded(import, [this](LPCSTR text) { ReportException(messages::kDDTImportException, text); });
}
