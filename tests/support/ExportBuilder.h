// Exports from readable text.
//
// A text is a sequence of words; line ends are blanks like any other, except after RAW:
//
//   TYPE Motor STRUCT SPEED INT @0 size 2 'rpm' STATE ARRAY[0..3] OF BOOL @2 END
//   TYPE Table ARRAY[1..2,0..3] OF REAL
//   TYPE Odd ARRAY "any declaration" STRUCT A INT END
//   DFB Pid IN SP REAL @0 OUT OP REAL @4 PRIVATE N INT END
//   VAR MOTOR1 Motor AT %MW100 block 5 @200 size 16 'conveyor drive'
//   VAR FLAG BOOL AT %MW3.5 bit 5 access 1 customer "line 1"
//   RAW <anything/>
//
// A member is a name, a type and what may follow it:
//   @n (AreaOffset)  size n  block n  bit n (ExtractBit)  access n (RequestAccessRight)  hidden n (IsVariableHidden)
//   indirection n (IndirectionKind)  customer text (CustomerString)  attr Name value (any)
//   AT address (topologicalAddress)  'comment'
// What is not written is absent from the export. The sections of a DFB are IN,
// INOUT, OUT, PRIVATE and PUBLIC. END may be left out before another
// declaration. RAW takes the rest of its line as it is: into the open type,
// else beside the types; RAWVAR puts it among the variables. NODATABLOCK
// leaves the element of the variables out. A word in "double quotes" is never a
// keyword and may be empty or hold blanks; a doubled quote stands for one.
#pragma once

#include "support/TemporaryFolder.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// One element of an export; without a tag it is raw text.
struct ExportNode
{
    std::string tag = {};
    std::vector<std::pair<std::string, std::string>> attributes = {};
    std::string text = {};
    std::vector<ExportNode> children = {};
};

// Throws std::runtime_error with the line number when the text makes no sense.
ExportNode ParseExport(std::string_view text);

// Writes the XML for a text into the folder; returns the file's path.
std::string WriteExport(const CTemporaryFolder& folder, std::string_view text, std::string_view name = "plant.kds");
