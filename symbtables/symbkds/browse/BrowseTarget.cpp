// From a browse path to the value whose children are listed.
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

namespace {

// The last name of the path with the indexes behind it: B[1][2] of A.B[1][2].
CString PrefixOf(const CSymbKorvaAnalyser& path)
{
    CString indexes;
    for (int item = path.GetLastIndex(); item >= 0; --item) {
        const CSymbKorvaAnalysedItem& step = path.GetItem(item);
        if (!step.name.IsEmpty())
            return step.name + indexes;
        indexes = "[" + step.index + "]" + indexes;
    }
    return indexes;
}

} // namespace

HRESULT FindBrowseTarget(CSymbXml& symbolTable, LPCSTR browsePath, BrowseTarget& target)
{
    CSymbKorvaAnalyser path;
    CString pathText(browsePath);
    if (!path.Analyse(pathText, 0))
        return E_INVALIDARG;
    CString rootName;
    path.GetItemName(0, rootName);
    target.root = symbolTable.FindVariable(rootName);
    MAPOFDDTDEF& types = symbolTable.GetTypes();
    CSymbXMLDDTDef* rootDefinition = nullptr;
    if (!target.root || !types.FindTypeDef(target.root->typeName, rootDefinition))
        return E_INVALIDARG;
    target.block = target.root->block;
    target.offset = target.root->offset;
    target.size = target.root->size;
    if (!rootDefinition->FindDefinitionAtPath(path, 1, &types, target.definition, target.block, target.offset,
                                              target.size))
        return E_INVALIDARG;
    target.prefix = PrefixOf(path);
    return S_OK;
}
