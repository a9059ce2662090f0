// The type lookup and the arrays it registers: these need both the definitions
// and the symbol table, which numbers the generated names.
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/CUpperName.h"
#include "symbkds/model/ExportWords.h"
#include "symbkds/model/MAPOFDDTDEF.h"

CString& CSymbXMLDDTArrayDef::MakeTempArrayName(CString& text, CSymbXml& symbolTable)
{
    text.Format("%%TEMP_ARRAY%i", static_cast<int>(symbolTable.DrawAnonymousArrayNumber()));
    return text;
}

CSymbXMLDDTArrayDef* MAPOFDDTDEF::AddArrayChain(const CSymbXMLDDTArrayDef& array, const CString* outerName)
{
    CSymbXMLDDTArrayDef* outermost = nullptr;
    CString elementName = array.elementTypeName;
    for (int dimension = array.dimensionCount - 1, step = 0; dimension >= 0; --dimension, ++step) {
        CString partName;
        if (dimension == 0 && outerName)
            partName = *outerName;
        else
            CSymbXMLDDTArrayDef::MakeTempArrayName(partName, *owner);
        const ArrayBounds& bounds = array.bounds[static_cast<std::size_t>(dimension)];
        auto part = std::make_unique<CSymbXMLDDTArrayDef>(partName, ArrayDeclaration(bounds, elementName));
        part->SetDisplayText(array, step);
        outermost = part.get();
        elementName = partName;
        AddTypeDef(elementName, std::move(part));
    }
    return outermost;
}

bool MAPOFDDTDEF::FindTypeDef(const CString& name, CSymbXMLDDTDef*& definition)
{
    const CUpperName key(name);
    definition = nullptr;
    if (definitions.Lookup(key, definition))
        return true;
    return IsArrayDeclaration(name.View()) && AddDeclaredArray(name, static_cast<LPCSTR>(key), definition);
}

bool MAPOFDDTDEF::AddDeclaredArray(const CString& name, const CString& key, CSymbXMLDDTDef*& definition)
{
    const ArrayDeclaration declaration(name);
    if (!declaration.MakesValue())
        return false;
    auto array = std::make_unique<CSymbXMLDDTArrayDef>(name, declaration);
    if (array->dimensionCount < 2) {
        definition = array.get();
        AddTypeDef(key, std::move(array));
        return true;
    }
    CSymbXMLDDTArrayDef* outermost = AddArrayChain(*array, nullptr);
    AddTypeDef(key, outermost->CloneArrayDef());
    definition = outermost;
    return true;
}
