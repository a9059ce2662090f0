#pragma once

#include "symbhost/exports/ExportRecords.h"
#include "symbkds/model/ArrayDeclaration.h"

#include <string>

// Whether a host gets the type that an export declares: structures without members and arrays without a range are
// left out.
bool IsRegistered(const ExportType& type);

// Why no element of an array resolves, as half a sentence: "has no readable range"; empty when elements do.
std::string ArrayProblem(const ArrayDeclaration& declaration);
