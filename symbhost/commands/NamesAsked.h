// What the commands that take names have in common.
#pragma once

#include "symbhost/commands/CNameList.h"
#include "symbhost/exports/CExplainer.h"
#include "symbhost/output/Cell.h"

// The columns of a table of names, prefixed, and a name's cells of them; only CSV shows them.
std::vector<Column> ColumnsIn(const CNameList& names);
void AppendCellsIn(const GivenName& name, std::vector<Cell>& cells);

// A lookup of the name; one with a fault fails without being asked.
LookupAnswer LookUpGiven(CSymb& table, CConsoleSink& sink, const GivenName& name);
// Why the name, looked up, is served or not.
Explanation ExplainGiven(CExplainer& explainer, const GivenName& name, const LookupAnswer& answer);
