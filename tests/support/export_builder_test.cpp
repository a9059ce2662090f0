#include "support/ExportBuilder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

const char kHead[] = "<LocatedSymbolTable>";
const char kTail[] = "</LocatedSymbolTable>\n";

struct BuildCase
{
    const char* text;
    const char* xml; // between the root's tags
};

const BuildCase kBuilds[] = {
    {"", "<dataBlock/>"},
    {"NODATABLOCK", ""},
    {"TYPE Motor STRUCT  SPEED INT @0 size 2 'rpm'\n STATE array[0..3] of BOOL @2 END RAW <x/>\nNODATABLOCK",
     "<DDTSource DDTName=\"Motor\"><structure>"
     "<variables name=\"SPEED\" typeName=\"INT\"><attribute name=\"AreaOffset\" value=\"0\"/>"
     "<attribute name=\"Size\" value=\"2\"/><comment>rpm</comment></variables>"
     "<variables name=\"STATE\" typeName=\"array[0..3] of BOOL\"><attribute name=\"AreaOffset\" "
     "value=\"2\"/></variables>"
     "</structure></DDTSource><x/>"},
    {"TYPE T ARRAY[1..2, 0..3] OF ARRAY[0..1] OF REAL TYPE U ARRAY \"odd < one\" NODATABLOCK",
     "<DDTSource DDTName=\"T\"><array>ARRAY[1..2, 0..3] OF ARRAY[0..1] OF REAL</array></DDTSource>"
     "<DDTSource DDTName=\"U\"><array>odd &#60; one</array></DDTSource>"},
    {"DFB Pid IN SP REAL INOUT OUT \"OUT\" INT RAW <odd/>\n PRIVATE N INT hidden 1 PUBLIC VAR V Pid",
     "<FBSource nameOfFBType=\"Pid\"><inputParameters><variables name=\"SP\" typeName=\"REAL\"/></inputParameters>"
     "<inOutParameters/><outputParameters><variables name=\"OUT\" typeName=\"INT\"/><odd/></outputParameters>"
     "<privateLocalVariables><variables name=\"N\" typeName=\"INT\"><attribute name=\"IsVariableHidden\" "
     "value=\"1\"/></variables></privateLocalVariables><publicLocalVariables/></FBSource>"
     "<dataBlock><variables name=\"V\" typeName=\"Pid\"/></dataBlock>"},
    {"VAR A \"\" AT %MW1 block 5 bit 3 access 2 indirection 2 customer \"say \"\"hi\"\"\" attr Other \"a\nb\" 'it''s'\n"
     "RAWVAR <variables/>",
     "<dataBlock><variables name=\"A\" typeName=\"\" topologicalAddress=\"%MW1\">"
     "<attribute name=\"AreaBlock\" value=\"5\"/><attribute name=\"ExtractBit\" value=\"3\"/>"
     "<attribute name=\"RequestAccessRight\" value=\"2\"/><attribute name=\"IndirectionKind\" value=\"2\"/>"
     "<attribute name=\"CustomerString\" value=\"say &#34;hi&#34;\"/><attribute name=\"Other\" value=\"a&#10;b\"/>"
     "<comment>it's</comment></variables><variables/></dataBlock>"},
};

TEST(ExportBuilder, TurnsTextIntoXml)
{
    for (const BuildCase& row : kBuilds) {
        std::string root = *row.xml ? kHead + std::string(row.xml) + kTail : "<LocatedSymbolTable/>\n";
        EXPECT_EQ(BuildExport(row.text), root) << row.text;
    }
}

TEST(ExportBuilder, NamesTheLineOfAMistake)
{
    const BuildCase refused[] = {
        {"VAR A INT\nWHAT", "line 2: a declaration is expected at \"WHAT\""},
        {"VAR A", "line 1: a type is expected at \"\""},
        {"VAR A INT\n\nsize", "line 3: a value is expected at \"\""},
        {"DFB D X INT", "line 1: a section is expected at \"X\""},
        {"VAR A INT\n'open", "line 2: a quote is not closed"},
        {"VAR A INT NODATABLOCK", "line 1: variables stand beside NODATABLOCK at \"\""},
    };
    for (const BuildCase& row : refused) {
        std::string message = "accepted";
        try {
            BuildExport(row.text);
        } catch (const std::runtime_error& error) {
            message = error.what();
        }
        EXPECT_EQ(message, row.xml) << row.text;
    }
}

} // namespace
