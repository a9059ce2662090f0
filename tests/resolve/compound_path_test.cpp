// Paths below a variable. What every ordinary path of a project resolves to is the plain model's to check; here is
// whatever is odd.
#include "resolve/LookupTables.h"

namespace {

const PlantCase kStructures[] = {
    {"TYPE S STRUCT A INT @4 size 2 'first' T ARRAY[1..3] OF INT @14 size 6 Text string[7] @20 size 8 C Sub @8 size 6\n"
     "  END TYPE Sub STRUCT X INT END VAR V S AT %MW50 block 3 @100 size 40 access 1 'whole' customer c",
     {{"V.A|v.a|V..A", "INT +104 size 2 block 3 access 1 'first' customer \"c\""},
      {"V.A.|V.A.256", "INT as BOOL +104 size 2 block 3 bit 0 access 1 'first' customer \"c\""},
      {"V.Text", "STRING[7] as STRING +120 size 7 block 3 access 1 customer \"c\""},
      {"V.T[3].5|V.T[3]5", "INT as BOOL +118 size 2 block 3 bit 5 access 1 customer \"c\""},
      {"V.A.16|V.C.3|V.T[3].16", kNoSuchBit},
      {"V.T[2].X|V.T[2][1]|V.A.X|V.A[0]|V.A.X.5|V.Z|V[0]|V.C[0]|V. A|V.T[2].5.6", kNoSuchPath}}},
    // Offsets are added modulo 2^32.
    {"TYPE S STRUCT A INT @6 size 2 B INT @-6 size 2 END VAR V S @-4 size 8 VAR W S @2147483647 size 8",
     {{"V.A", "INT +2 size 2"}, {"V.B", "INT +4294967286 size 2"}, {"W.A", "INT +2147483653 size 2"}}},
    // A member may be called like a bit.
    {"TYPE S STRUCT 5 INT @10 size 2 END VAR V S size 4 VAR T ARRAY[0..1] OF S size 24",
     {{"V.5", "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF:Can only animate LOCATED EDT which size is 1 or 2"},
      {"V.5.5", "INT as BOOL +10 size 2 bit 5"},
      {"T[1].5", "INT as BOOL +22 size 2 bit 5"}}},
    // An index below a structure designates nothing, not even a member whose name is missing.
    {"TYPE S STRUCT\n RAW <variables typeName=\"INT\"/>\n A INT @2 size 2 END VAR V S size 4",
     {{"V[0]", kNoSuchPath}, {"V.A", "INT +2 size 2"}}},
    {"TYPE S STRUCT N Never @10 size 2 END VAR V S", {{"V.N.X|V.N[0]", kNoSuchPath}}},
};

TEST(CompoundPath, GoesThroughStructures)
{
    ExpectLookups(kStructures);
}

const PlantCase kArrays[] = {
    {"VAR TAB ARRAY[1..10] OF INT AT %MW7 @40 size 20 'tab' customer c",
     {{"TAB[3|TAB[3,9]|TAB[3-9]", "INT +44 size 2 customer \"c\""}, // the first number counts
      {"TAB[03].15", "INT as BOOL +44 size 2 bit 15 customer \"c\""},
      {"TAB[]|TAB[4294967299]|TAB[3].X|TAB[3].5.6|TAB[3].5.X|TAB.X|TAB.X.3", kNoSuchPath}}},
    {"VAR M ARRAY[0..2,0..3] OF INT @100 size 24 VAR N ARRAY[1..2,1..2,1..2] OF REAL size 32",
     {{"M[1]|M[1,2]", "ARRAY[0..3] OF INT as INT[] +108 size 8"},
      {"M[1][2][0]", kNoSuchPath},
      {"N[2]", "ARRAY[1..2,1..2] OF REAL as REAL[] +16 size 16"}}},
    // A name in the place of an index reads as its bit number or as index 0.
    {"TYPE Sub STRUCT X INT @0 size 2 Y REAL @2 size 4 END TYPE Two STRUCT X INT size 2 END\n"
     "VAR T ARRAY[0..3] OF SUB @8 size 24 VAR U ARRAY[1..4] OF Sub size 24 VAR B ARRAY[5..6] OF Two size 4",
     {{"T.X", "Sub as structured +8 size 6 'SUB'"},
      {"T.X.Y", "REAL +10 size 4"},
      {"T.X.2", kNoSuchBit}, // element 2 it is, but six bytes have no bits
      {"B.X.5", "Two as BOOL +0 size 2 bit 5 at %MW0.5 'TWO'"},
      {"T[3].X.Y|T[3].4|U.X", kNoSuchPath}}},
    // Sizes and bounds that make no sense.
    {"VAR Odd ARRAY[0..2] OF INT size 20 VAR Zero ARRAY[0..2] OF INT VAR Less ARRAY[0..2] OF INT size 2\n"
     "VAR Back ARRAY[3..1] OF INT size 6 VAR BackRows ARRAY[0..1,3..1] OF INT size 6 VAR Next ARRAY[2..1] OF INT size "
     "6\n"
     "VAR All ARRAY[-2147483648..2147483647] OF INT size 8 VAR Most ARRAY[-2147483648..2147483646] OF INT size -1\n"
     "VAR Far ARRAY[0..99999999999] OF BYTE @8 size -1 VAR Negative ARRAY[0..1] OF INT size -2 VAR Sym ARRAY[-5..5] OF "
     "INT size 22",
     {{"Odd[2]", "INT +12 size 6"},
      {"Zero[2]|Less[2]", "INT +0 size 0"},
      {"BackRows[1]", "ARRAY[3..1] OF INT as INT[] +3 size 3"},
      {"Back[2]|Back[3]|BackRows[1][3]|Next[2]|All[0]|Most[2147483647]", kNoSuchPath},
      {"Most[-2147483648]|Most[-99999999999]", "INT +0 size 1"},
      {"Most[2147483646]", "INT +4294967294 size 1"},
      {"Far[99999999999]", "BYTE +2147483655 size 1"}, // text and bound end at the same limit
      {"Negative[1]", "INT +2147483647 size 2147483647"},
      {"Sym[-3]|Sym[-3-1]", "INT +4 size 2"},
      {"Sym[--3]|Sym[]", "INT +10 size 2"}}},
};

TEST(CompoundPath, GoesThroughArrays)
{
    ExpectLookups(kArrays);
    EXPECT_EQ(CLoadedExport("VAR V ARRAY[0..3] OF Nowhere size 8").table.Browse({.path = "V[3]"}), "E_INVALIDARG");
}

} // namespace
