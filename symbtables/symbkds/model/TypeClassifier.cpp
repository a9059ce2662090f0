#include "symbkds/model/TypeClassifier.h"

#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/MAPOFDDTDEF.h"
#include "symbkds/model/TypeCodes.h"

ValueType ClassifyValueType(const CString& typeName, MAPOFDDTDEF& types, const ClassifierRules& rules)
{
    if (const ElementaryType* type = FindElementaryType(typeName.View(), rules.nameCase))
        return {type->typeCode, type->varType};
    CSymbXMLDDTDef* definition = nullptr;
    types.FindTypeDef(typeName, definition);
    if (CSymbXMLDDTArrayDef* array = AsArray(definition)) {
        // One walk down the chain tells what it would take nine questions to find out.
        const std::uint32_t code = array->InnermostElementCode(&types);
        const ElementaryType* element = FindElementaryTypeByCode(code);
        if (element && element->arrayCode != 0)
            return {element->arrayCode, element->*rules.arrayVarType};
    }
    return {kStructuredCode, rules.structuredVarType};
}
