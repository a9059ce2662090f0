// What is wrong with an export.
#include "symbhost/HostFixture.h"

#include <nlohmann/json.hpp>

namespace {

class CheckTest : public HostTest
{
protected:
    // The findings of a file, each as "code symbol; ", and behind them the status where it is not that of the
    // severities.
    std::string Check(const std::string& path) const
    {
        const HostRun run = Run({"check", "--json", path});
        std::string text;
        bool isClean = true;
        for (const auto& finding : nlohmann::json::parse(run.output)) {
            text += finding["code"].get<std::string>() + " " + finding["symbol"].get<std::string>() + "; ";
            isClean = isClean && finding["severity"] == "note";
            EXPECT_FALSE(finding["text"].get<std::string>().empty());
        }
        return text + (run.status == (isClean ? 0 : 1) ? "" : "status " + std::to_string(run.status));
    }
};

TEST_F(CheckTest, FindsEachFault)
{
    const std::string motor = "TYPE Motor STRUCT SPEED INT @0 size 2 STATE WORD @2 END\n";
    const std::string longText(1024, 'x');
    const struct
    {
        std::string text;
        const char* findings;
    } cases[] = {
        {"VAR A INT AT %MW1 block 5 @2 size 2 VAR M ARRAY[0..1,1..3] OF INT block 5 @4 size 12", ""},
        // The document
        {"NODATABLOCK", "no-variables ; "},
        {"", "no-variables ; "},
        {"VAR A INT block 1 size 2 RAW <dataBlock/>", "no-variables ; second-data-block ; "},
        // Types, in the order of the export
        {motor + "TYPE motor STRUCT SPEED INT END TYPE Motor STRUCT END TYPE Table ARRAY \"ARRAY[1 ..2] OF INT\"\n"
                 "TYPE Deep ARRAY[1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2] OF INT\n"
                 "TYPE Back ARRAY[2..1] OF INT TYPE Of ARRAY[1..2] OF Nothing TYPE SFCCHART_STATE STRUCT END\n"
                 "VAR M Motor block 1 size 2 VAR S SFCCHART_STATE block 2 VAR B Back block 3 size 9\n"
                 "VAR R \"ARRAY[1 ..2] OF INT\" block 4 size 2 VAR N ARRAY[1..2] block 5",
         "duplicate-type motor; dropped-type Motor; dropped-type Table; unusable-array Deep; unusable-array Back; "
         "unknown-member-type Of; unknown-member-type N; "},
        {"DFB Ramp IN X INT size 2 END DFB Pid IN FIRST Ramp size 2 SECOND Ramp size 2 END VAR P Pid block 1 size 9\n"
         "RAW <FBSource nameOfFBType='Odd'><comment/><INPUTParameters/><inputParameter/></FBSource>",
         "removed-block Pid.SECOND; ignored-section Odd; "},
        {"TYPE A STRUCT NEXT B LAST INT END TYPE B ARRAY[1..2] OF C TYPE C STRUCT UP A OWN C END\n"
         "TYPE D STRUCT IN A END VAR X D block 1",
         "type-ring A; type-ring B; type-ring C; "},
        {"TYPE Odd STRUCT X Missing Y ARRAY[1..2] OF Missing Z ARRAY[5..4] OF INT size 2 \"1\" INT H INT hidden 1 END\n"
         "VAR O Odd block 1 size 99",
         "unknown-member-type Odd.X; unknown-member-type Odd.Y; unusable-array Odd.Z; unreachable-name Odd.1; "
         "hidden-member Odd.H; "},
        {motor + "TYPE Line STRUCT MOTORS ARRAY[1..2] OF Motor @0 size 6 END VAR L Line block 1 size 6",
         "outside-parent Motor.STATE; "},
        {"TYPE Sizes STRUCT A INT B INT size 4 C ARRAY[1..2] OF INT size 2 D STRING[5] size 5 END\n"
         "DFB Block IN A INT END VAR S Sizes block 1 size 99 VAR T Block block 2 size 99",
         "size-mismatch Sizes.B; size-mismatch Sizes.C; size-mismatch Block.A; "},
        // Variables
        {"VAR A Missing VAR B \"\" VAR \"\" INT VAR C ARRAY[1..2] OF Missing block 1 size 4 VAR D ARRAY[3..2] OF INT\n"
         "VAR E ARRAY[1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2,1..2] OF INT\n"
         "TYPE Empty STRUCT END VAR F Empty",
         "dropped-type Empty; unknown-type A; unknown-type B; no-name variables[3]; unknown-member-type C; "
         "unusable-array D; unusable-array E; unknown-type F; "},
        {"VAR Tank INT block 1 size 2 VAR tAnk INT VAR TANK INT block 1 @2 size 2 VAR tank Missing VAR Gone Missing\n"
         "VAR GONE INT block 1 @4 size 2",
         "duplicate-variable tAnk; duplicate-variable TANK; unknown-type tank; unknown-type Gone; "},
        {"VAR A.B INT block 1 size 2 VAR \" C\" INT block 2 size 2 VAR 5 INT block 3 size 2 VAR D INT AT %MW1",
         "unreachable-name A.B; unreachable-name  C; unreachable-name 5; no-place D; "},
        // Places: beside each other, in part, inside, around, the same; bits of a word, and the same bit twice
        {"VAR A DINT block 1 size 4 VAR B DINT block 1 @4 size 4 VAR C DINT block 1 @6 size 4 VAR D INT block 1 @2 "
         "size 2\n"
         "VAR E ARRAY[0..5] OF INT block 1 size 12 VAR F DINT block 1 @4 size 4 VAR G DINT block 2 @6 size 4",
         "overlap C; alias D; alias E; overlap F; alias F; "},
        {"VAR W WORD AT %MW10 block 5 @20 size 2 VAR B3 BOOL AT %MW10.3 block 5 @20 size 1 bit 3\n"
         "VAR B11 BOOL block 5 @21 size 1 bit 3 VAR B15 BOOL AT %MW10.15 block 5 @20 size 1 bit 15\n"
         "VAR AGAIN BOOL AT %MW10.11 block 5 @20 size 1 bit 11",
         "alias B3; alias B11; alias B15; overlap AGAIN; alias AGAIN; "},
        {"VAR A INT block 1 size 4 VAR B ARRAY[1..2] OF REAL block 2 size 9 VAR C STRING[7] block 3 size 7 VAR D INT\n"
         "VAR E BOOL AT %M3 block 4 @4 VAR F ARRAY[0..1999999999] OF INT block 6 size 4000000000",
         "size-mismatch A; size-mismatch B; size-mismatch E; size-mismatch F; "},
        {"VAR A INT block 1 size 2 '\xEF\xBF\xBD' VAR B INT block 2 size 2 '" + longText + "'",
         "replaced-characters A; cut-text B; "},
        {"VAR A REAL AT %MD1 block 1 size 4 VAR B real AT %MD2 block 1 @4 size 4 VAR C STRING[3] AT %M1 block 2 size "
         "3\n"
         "VAR D DINT block 3 size 4",
         "not-served REAL; not-served STRING; "},
    };
    for (const auto& row : cases)
        EXPECT_EQ(Check(Export(row.text)), row.findings) << row.text.substr(0, 200);
}

TEST_F(CheckTest, AnswersForFilesThatDoNotLoad)
{
    EXPECT_EQ(Check(folder.WriteFile("bad.kds", "<a><b></a>")), "not-xml ; ");
    EXPECT_EQ(Run({"check", folder.FilePath("missing.kds")}).status, 2);
    EXPECT_EQ(Check(folder.WriteFile("old.kds", "<?xml version='1.0' encoding='windows-1252'?><a/>")),
              "no-variables ; encoding-ignored ; ");
    const std::string plant = EXAMPLES_DIR "/plant.kds";
    const HostRun run = Run({"check", "--csv", plant});
    EXPECT_TRUE(run.output.starts_with("severity,code,symbol,text\r\nnote,hidden-member,MOTOR.CHECKSUM,"))
        << run.output;
    EXPECT_NE(Run({"check", plant}).output.find("\nerror     unknown-type        CARD3 "), std::string::npos);
}

} // namespace
