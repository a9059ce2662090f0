#include "symbkds/model/TypeClassifier.h"

#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/MAPOFDDTDEF.h"
#include "symbkds/model/TypeCodes.h"

ValueType ClassifyValueType(const CString& typeName, MAPOFDDTDEF& types, const ClassifierRules& rules)
{
    if (const ElementaryType* type = FindElementaryType(typeName.View(), rules.nameCase))
        return {type->typeCode, type->varType};
    CSymbXMLDDTDef* definition = nullptr;
    if (types.FindTypeDef(typeName, definition))
        for (const ElementaryType* element : ArrayElementTypes())
            if (definition->IsArrayOf(element->typeCode, &types))
                return {element->arrayCode, element->*rules.arrayVarType};
    return {kStructuredCode, rules.structuredVarType};
}
