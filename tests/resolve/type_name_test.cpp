// Types whose names are declarations, generated, odd or written in another case.
#include "resolve/LookupTables.h"

namespace {

#define UNKNOWN_ROOT "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF: unknown variable "

const PlantCase kGenerated[] = {
    // A declared type that takes a generated name, or loses its name to one.
    {"TYPE %TEMP_ARRAY0 STRUCT X INT @4 size 2 END TYPE T ARRAY[0..1,0..2] OF INT VAR V %TEMP_ARRAY0 size 6 VAR W T "
     "size 12",
     {{"V.X", kNoSuchPath}, {"V[2]", "INT +4 size 2"}, {"W[1]", "ARRAY[0..2] OF INT as INT[] +6 size 6"}}},
    {"TYPE T ARRAY[0..1,0..2] OF INT TYPE %Temp_Array0 STRUCT X INT @4 size 2 END VAR W T size 12",
     {{"W[1]", "%Temp_Array0 as structured +6 size 6 '%TEMP_ARRAY0'"},
      {"W[1].X", "INT +10 size 2"},
      {"W[1][2]", kNoSuchPath}}},
    {"TYPE %TEMP_ARRAY7 ARRAY[0..1] OF INT VAR V %TEMP_ARRAY7 size 4 VAR W ARRAY[0..1] OF %TEMP_ARRAY7 size 8",
     {{"V[1]", "INT +2 size 2"}, {"W[1]", " as INT[] +4 size 4"}}}, // without a declaration to show
    // Resolving may draw the very name of the type at hand, which is another type from then on.
    {"TYPE T ARRAY[0..1,0..1,0..1] OF INT TYPE %TEMP_ARRAY3 STRUCT M T @4 size 16 END VAR V %TEMP_ARRAY3 size 20",
     {{"V.M[1]", "ARRAY[0..1,0..1] OF INT as structured +12 size 8"}, {"V.M[1]", "INT +5 size 5"}}},
    // Arrays that contain themselves: each step goes one level down.
    {"TYPE %TEMP_ARRAY0 ARRAY[0..1,0..2] OF INT VAR V %TEMP_ARRAY0 size 65536 VAR W ARRAY[0..0] OF %TEMP_ARRAY0 size 8",
     {{"V[1]", "ARRAY[0..1,0..2] OF INT as structured +32768 size 32768"},
      {"V[1][1][0][0][0][0][0][0][0][0][0][0][0][0][0]", "ARRAY[0..1,0..2] OF INT as structured +49152 size 2"},
      {"V[1][1][0][0][0][0][0][0][0][0][0][0][0][0].3", kNoSuchPath},
      {"V[1][2]", kNoSuchPath}}},
    {"TYPE R ARRAY[0..1] OF r TYPE P ARRAY[0..1] OF Q TYPE Q ARRAY[0..3] OF P TYPE S STRUCT M P @2 size 64 END\n"
     "VAR A R size 16 VAR B P @8 size 64 VAR C S",
     {{"A[1][0][1]", "R as structured +10 size 2 'R'"},
      {"B[1][3][1]", "Q as structured +68 size 4 'Q'"},
      {"C.M[0][1]", "P as structured +10 size 8 'P'"}}},
    // Structures and arrays through one another.
    {"TYPE S STRUCT A ARRAY[0..1,0..1] OF S @4 size 64 V INT @2 size 2 END VAR R S",
     {{"R.A[1][1].A[0]", "ARRAY[0..1] OF S as structured +56 size 32"}, {"R.A[1][1].A[0][1].V", "INT +74 size 2"}}},
    // The name of a declaration may be taken by a type of any kind.
    {"TYPE \"Array[0..1] of INT\" STRUCT X INT @4 size 2 END VAR V ARRAY[0..1] OF INT size 6",
     {{"V.X", "INT +4 size 2"}, {"V[1]", kNoSuchPath}}},
    // Declarations that say little.
    {"VAR A ARRAYX size 4 VAR B ARRAY size 4 VAR C ARRAY[0..1] size 4", {{"A[0]|B.X|C[1]", kNoSuchPath}}},
    {"TYPE \"\" STRUCT X INT @2 size 2 END VAR A ARRAYX size 4 VAR C ARRAY[0..1] @10 size 4 VAR E \"\"",
     {{"A[0]", " as structured +0 size 4 at %MD0"},
      {"A.Q.X", "INT +2 size 2"},
      {"C[1].X", "INT +14 size 2"},
      {"E.X", "INT +2 size 2"}}},
    {"VAR E \"\"  VAR A \"ARRAY[0 ..1] OF INT\" size 4 VAR B \"ARRAY[0..1 ,0..1] OF INT\" size 4\n"
     "VAR C \"ARRAY[0..1, 0.. 1] OF INT\" size 8 VAR D \"ARRAY[0..1 Of INT\" size 4 VAR F \"Array[+1..2] oF int\" size "
     "4",
     {{"E.X", UNKNOWN_ROOT "E"},
      {"A[0]", "INT +0 size 4"}, // no dimension was read: one element
      {"A[1]", kNoSuchPath},
      {"C[1][1]", "INT +6 size 2"},
      {"B[1]|D[1]|F[2]", "INT +2 size 2"}}}, // the list of the first ends at the blank
    // The element type stands behind the first " OF ".
    {"VAR V \"ARRAY[0..1] OF ARRAY[0..2] OF ARRAY[0..3] OF BYTE\" size 24",
     {{"V[1]", "ARRAY[0..2] OF ARRAY[0..3] OF BYTE as structured +12 size 12 'ARRAY[0..2] OF ARRAY[0..3] OF BYTE'"},
      {"V[1][2]", "ARRAY[0..3] OF BYTE as structured +20 size 4 'ARRAY[0..3] OF BYTE'"},
      {"V[1][2][3]", "BYTE +23 size 1"}}},
};

TEST(TypeName, MayBeADeclarationOrLookLikeAGeneratedOne)
{
    ExpectLookups(kGenerated);
}

TEST(TypeName, OfAnArrayHasAtMostTenDimensions)
{
    const std::string ten = "ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1";
    const std::string plant = "TYPE T \"" + ten + ",0..1] OF INT\" TYPE S STRUCT M \"" + ten +
                              ",0..1] OF INT\" @2 size 8 END\n" + "VAR A \"" + ten + "] OF INT\" size 2048 VAR B \"" +
                              ten + ",0..1] OF INT\" VAR C T VAR D S";
    const LookupCase rows[] = {
        {"A[1][0][0][0][0][0][0][0][0][1].4", "INT as BOOL +1026 size 2 bit 4"},
        {"A[1][0][0][0][0][0][0][0][1]", "ARRAY[0..1] OF INT as INT[] +1028 size 4"},
        {"B[0]", UNKNOWN_ROOT "B"},
        {"C[0]", UNKNOWN_ROOT "C"},
        {"D.M[0]", kNoSuchPath},
    };
    ExpectLookups(plant, rows);
    CLoadedExport loaded(plant);
    EXPECT_EQ(loaded.table.Lookup("D.M"), ten + ",0..1] OF INT as structured +2 size 8");
}

} // namespace
