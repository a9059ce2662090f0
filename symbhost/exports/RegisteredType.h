#pragma once

#include "symbhost/exports/ExportRecords.h"
#include "symbkds/model/ArrayDeclaration.h"

#include <string>

// Whether a host gets the type that an export declares.
bool IsRegistered(const ExportType& type);

// Why an array lists nothing and resolves no element, as half a sentence: "has the range 5..1, which is empty"; empty
// when it does.
std::string ArrayProblem(const ArrayDeclaration& declaration);
