#include "symbkds/model/MAPOFDDTDEF.h"

#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/CUpperName.h"

namespace {

constexpr std::uint32_t kTypeBuckets = 769;

} // namespace

MAPOFDDTDEF::MAPOFDDTDEF(CSymbXml* symbolTable) : owner(symbolTable)
{
    definitions.InitHashTable(kTypeBuckets, false);
}

MAPOFDDTDEF::~MAPOFDDTDEF()
{
    RemoveAllTypeDefs();
}

void MAPOFDDTDEF::AddTypeDef(const CString& name, std::unique_ptr<CSymbXMLDDTDef> definition)
{
    ++revision;
    CString key = name;
    key.MakeUpper();
    if (auto* present = definitions.PLookup(key)) {
        displaced.emplace_back(nullptr); // may fail, so it comes first
        displaced.back().reset(present->value);
        present->value = definition.release();
        return;
    }
    definitions.SetAt(key, definition.get());
    static_cast<void>(definition.release()); // the map's from here on
}

bool MAPOFDDTDEF::IsDerivedType(const CString& name)
{
    CSymbXMLDDTDef* definition = nullptr;
    return FindTypeDef(name, definition);
}

bool MAPOFDDTDEF::IsDFBType(const CString& name)
{
    CSymbXMLDDTDef* definition = nullptr;
    return FindTypeDef(name, definition) && definition->IsDFB();
}

const CSymbXMLDDTDef* MAPOFDDTDEF::FindRegistered(const CString& name) const
{
    const auto* pair = definitions.PLookup(CUpperName(name));
    return pair ? pair->value : nullptr;
}

bool MAPOFDDTDEF::IsRegisteredDFB(const CString& name) const
{
    const CSymbXMLDDTDef* definition = FindRegistered(name);
    return definition && definition->IsDFB();
}

void MAPOFDDTDEF::DropDisplaced()
{
    displaced.clear();
}

void MAPOFDDTDEF::RemoveAllTypeDefs()
{
    for (const auto* pair = definitions.PGetFirstAssoc(); pair; pair = definitions.PGetNextAssoc(pair))
        delete pair->value;
    definitions.RemoveAll();
    DropDisplaced();
}
