// Paths below a variable: members, elements and what stands between them. That offsets and sizes add up on every path
// of a sound project is the plain model's to check; here are the texts, the codes and whatever is odd.
#include "resolve/LoadedPlant.h"

namespace {

const PlantCase kStructures[] = {
    {"TYPE Sub STRUCT X INT @0 size 2 'ix'  Y Real @2 size 4 P ARRAY[0..1] OF WORD @6 size 9 END\n"
     "TYPE Half STRUCT LO BYTE @0 HI BYTE @1 END\n"
     "TYPE S STRUCT A INT @4 size 2 'first'  B REAL @6 size 9  Text string[7] @20 size 8  C Sub @8 size 6 block 9 "
     "'inner'\n"
     "  T ARRAY[1..3] OF INT @14 size 6 'tab'  H Half @30 size 2  W ARRAY[0..0] OF WORD @32 size 2 END\n"
     "VAR V S AT %MW50 block 3 @100 size 40 access 1 'whole' customer c",
     {{"V.A|v.a|V..A", "INT +104 size 2 block 3 access 1 'first' customer \"c\""},
      {"V.A.3", "INT as BOOL +104 size 2 block 3 bit 3 access 1 'first' customer \"c\""},
      {"V.A.|V.A.256", "INT as BOOL +104 size 2 block 3 bit 0 access 1 'first' customer \"c\""},
      {"V.B", "REAL +106 size 4 block 3 access 1 customer \"c\""}, // the type's size, not the member's
      {"V.Text", "STRING[7] as STRING +120 size 7 block 3 access 1 customer \"c\""},
      {"V.C", "SUB as structured +108 size 6 block 3 access 1 'inner' customer \"c\""}, // its block is not added
      {"V.C.x.15", "INT as BOOL +108 size 2 block 3 bit 15 access 1 'ix' customer \"c\""},
      {"V.C.P", "ARRAY[0..1] OF WORD as WORD[] +114 size 9 block 3 access 1 customer \"c\""}, // as the export says
      {"V.H.3", "HALF as BOOL +130 size 2 block 3 bit 3 access 1 customer \"c\""}, // two bytes of any type have bits
      {"V.W.3", "ARRAY[0..0] OF WORD as BOOL +132 size 2 block 3 bit 3 access 1 customer \"c\""},
      {"V.T", "ARRAY[1..3] OF INT as INT[] +114 size 6 block 3 access 1 'tab' customer \"c\""},
      {"V.T[1]", "INT +114 size 2 block 3 access 1 customer \"c\""},
      {"V.T[3].5|V.T[3]5", "INT as BOOL +118 size 2 block 3 bit 5 access 1 customer \"c\""},
      {"V.A.16|V.B.3|V.C.3|V.T[3].16", kNoSuchBit},
      {"V.T[0]|V.T[4]|V.T[-1]|V.T[2].X|V.T[2][1]|V.A.X|V.A[0]|V.A.X.5|V.Z|V[0]|V.C[0]|V. A|V.T[2].5.6", kNoSuchPath}}},
    // Offsets are added modulo 2^32.
    {"TYPE S STRUCT A INT @6 size 2 B INT @-6 size 2 END VAR V S @-4 size 8 VAR W S @2147483647 size 8",
     {{"V.A", "INT +2 size 2"}, {"V.B", "INT +4294967286 size 2"}, {"W.A", "INT +2147483653 size 2"}}},
    // Of two members with one name the later is found; a member may be called like a bit.
    {"TYPE S STRUCT x INT @2 size 2 'one' Y REAL @4 X UINT @8 size 2 'two' 5 INT @10 size 2 END\n"
     "VAR V S size 4 VAR T ARRAY[0..1] OF S size 24",
     {{"V.x", "UINT +8 size 2 'two'"},
      {"V.5", "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF:Can only animate LOCATED EDT which size is 1 or 2"},
      {"V.5.5", "INT as BOOL +10 size 2 bit 5"},
      {"T[1].5", "INT as BOOL +22 size 2 bit 5"}}},
    // An index below a structure designates nothing, not even a member whose name is missing.
    {"TYPE S STRUCT\n RAW <variables typeName=\"INT\"/>\n A INT @2 size 2 END VAR V S size 4",
     {{"V[0]", kNoSuchPath}, {"V.A", "INT +2 size 2"}}},
    // A type that comes later in the export is not known when a member is classified, but it is when it is resolved.
    {"TYPE S STRUCT M Later @2 size 8 N Never @10 size 2 END TYPE Later ARRAY[0..3] OF INT VAR V S",
     {{"V.M", "LATER as structured +2 size 8"},
      {"V.M[3]", "INT +8 size 2"},
      {"V.N", "NEVER as structured +10 size 2"},
      {"V.N.1", "NEVER as BOOL +10 size 2 bit 1"},
      {"V.N.X|V.N[0]", kNoSuchPath}}},
    // Types may contain themselves; a path ends all the same.
    {"TYPE N STRUCT NEXT n @4 size 8 V INT @2 size 2 END VAR R N @100 size 8",
     {{"R.NEXT.NEXT.NEXT", "N as structured +112 size 8"},
      {"R.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.NEXT.V.1",
       "INT as BOOL +158 size 2 bit 1"}}},
};

TEST(CompoundPath, GoesThroughStructures)
{
    ExpectLookups(kStructures);
}

const PlantCase kArrays[] = {
    {"VAR TAB ARRAY[1..10] OF INT AT %MW7 @40 size 20 'tab' customer c",
     {{"tab[10]", "INT +58 size 2 customer \"c\""},
      {"TAB[3|TAB[3,9]|TAB[3-9]", "INT +44 size 2 customer \"c\""}, // the first number counts
      {"TAB[03].15", "INT as BOOL +44 size 2 bit 15 customer \"c\""},
      {"TAB[3].16", kNoSuchBit},
      {"TAB[0]|TAB[11]|TAB[-1]|TAB[]|TAB[4294967299]|TAB[3].X|TAB[3].5.6|TAB[3].5.X|TAB.X|TAB.X.3", kNoSuchPath}}},
    {"VAR M ARRAY[0..2,0..3] OF INT @100 size 24 VAR N ARRAY[1..2,1..2,1..2] OF REAL size 32",
     {{"M[1]|M[1,2]", "ARRAY[0..3] OF INT as INT[] +108 size 8"}, // the code stays that of the variable
      {"M[1][2].3", "INT as BOOL +112 size 2 bit 3"},
      {"M[1][2][0]|M[3][0]|M[0][4]", kNoSuchPath},
      {"N[2]", "ARRAY[1..2,1..2] OF REAL as REAL[] +16 size 16"},
      {"N[2][1]", "ARRAY[1..2] OF REAL as REAL[] +16 size 8"}}},
    // Below a member an array that a path ends on gets the size and code of its declaration, whatever the sizes say.
    {"TYPE S STRUCT M ARRAY[0..2,0..3] OF WORD @4 size 60  N ARRAY[0..1,0..1,0..1] OF INT @64 size 16\n"
     "  B ARRAY[0..1,0..1] OF BYTE @80 size 8  A ARRAY[0..1] OF ARRAY[0..3] OF INT @90 size 16  Q ARRAY[0..1,0..1] OF "
     "S @0 size 40 END\n"
     "VAR V S",
     {{"V.M[1]", "ARRAY[0..3] OF WORD as UINT[] +24 size 8"},
      {"V.M[1][1]", "WORD +29 size 5"},
      {"V.M", "ARRAY[0..2,0..3] OF WORD as WORD[] +4 size 60"},
      {"V.N[1]", "ARRAY[0..1,0..1] OF INT as structured +72 size 8"}, // its elements are arrays: left as it was
      {"V.N[1][1]", "ARRAY[0..1] OF INT as INT[] +76 size 4"},
      {"V.B[1]", "ARRAY[0..1] OF BYTE as structured +84 size 2"},
      {"V.B[1].3", kNoSuchPath},
      {"V.A[1]", "ARRAY[0..3] OF INT as INT[] +98 size 8 'ARRAY[0..3] OF INT'"},
      {"V.Q[1]", "ARRAY[0..1] OF S as structured +20 size 20"},
      {"V.Q[1][1].M[1]", "ARRAY[0..3] OF WORD as UINT[] +54 size 8"}}},
    // Elements of a derived type. A name in the place of an index reads as its bit number or as index 0.
    {"TYPE Sub STRUCT X INT @0 size 2 Y REAL @2 size 4 END TYPE Row ARRAY[0..1] OF sub\n"
     "VAR T ARRAY[0..3] OF SUB @8 size 24 VAR U ARRAY[1..4] OF Sub @8 size 24 VAR R ARRAY[0..1] OF Row size 24",
     {{"T[1]", "Sub as structured +14 size 6 'SUB'"},
      {"T.X", "Sub as structured +8 size 6 'SUB'"},
      {"T.X.Y", "REAL +10 size 4"},
      {"T.X.2", kNoSuchBit}, // element 2 it is, but six bytes have no bits
      {"T[3].X.Y|T[3].Z|T[3].4|T[4]|U.X", kNoSuchPath},
      {"R[1]", "Row as structured +12 size 12 'ROW'"}}},
    // Without an address of their own, values at the start of block 0 get one; elementary ones never do.
    {"TYPE Two STRUCT X INT size 2 END VAR A ARRAY[0..1,0..1] OF INT size 8 VAR B ARRAY[5..6] OF Two size 4\n"
     "VAR C ARRAY[5..6] OF Two size 4 block 1 VAR D ARRAY[0..0] OF Two size 8 VAR E ARRAY[0..1] OF Two @2 size 4",
     {{"A[0]", "ARRAY[0..1] OF INT as INT[] +0 size 4 at %MD0"},
      {"A[1]", "ARRAY[0..1] OF INT as INT[] +4 size 4"},
      {"A[0][0]", "INT +0 size 2"},
      {"B[5]", "Two as structured +0 size 2 at %MW0 'TWO'"},
      {"B.X.5", "Two as BOOL +0 size 2 bit 5 at %MW0.5 'TWO'"},
      {"B.X.6", "Two as BOOL +2 size 2 bit 6 'TWO'"},
      {"C[5]", "Two as structured +0 size 2 block 1 'TWO'"},
      {"D[0]", "Two as structured +0 size 8 'TWO'"},
      {"E[0]", "Two as structured +2 size 2 'TWO'"}}},
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
    EXPECT_EQ(CLoadedPlant("VAR V ARRAY[0..3] OF Nowhere size 8").table.Browse({.path = "V[3]"}), "E_INVALIDARG");
}

// Parameters of a function block are located, what lies below one is told relative to it.
const PlantCase kFunctionBlocks[] = {
    {"TYPE Sub STRUCT X INT @0 size 2 Y REAL @2 size 4 Z Sub2 @6 size 9 END TYPE Sub2 STRUCT W BOOL @3 size 4 L INT @4 "
     "END\n"
     "DFB F IN A INT @4 size 7 'in' S Sub @8 size 20 'sub' OUT T ARRAY[0..2] OF INT @28 size 6 \n"
     "  PRIVATE R ARRAY[0..1,0..1] OF DINT @40 size 16 PUBLIC U ARRAY[0..1] OF Sub @60 size 40 W INT @100 size 2 END\n"
     "VAR FB F AT %MW5 block 7 @1000 size 30 access 3 VAR FA ARRAY[0..1] OF F size 60",
     {{"FB.A", "INT +1004 size 7 block 7 access 2 'in'"}, // the parameter's size, not the type's
      {"FB.W.1", "INT as BOOL +1100 size 2 block 7 bit 1 access 2"},
      {"FB.S", "SUB as structured +1008 size 20 block 7 access 2 'sub'"},
      {"FB.S.X.3", "INT as BOOL +1008 size 2 block 7 bit 3 relative +0/2 access 2"},
      {"FB.S.Z", "SUB2 as structured +1008 size 9 block 7 relative +6/9 access 2"},
      {"FB.S.Z.W", "BOOL +1008 size 1 block 7 relative +9/1 access 2"},
      {"FB.T", "ARRAY[0..2] OF INT as INT[] +1028 size 6 block 7 access 2"},
      {"FB.T[2].9", "INT as BOOL +1028 size 2 block 7 bit 9 relative +4/2 access 2"},
      {"FB.R[1]", "ARRAY[0..1] OF DINT as DINT[] +1040 size 8 block 7 relative +8/8 access 2"},
      {"FB.U[1]", "Sub as structured +1060 size 20 block 7 relative +20/20 access 2 'SUB'"},
      {"FB.A.1|FB.S.Z.W.1", kNoSuchBit},
      {"FB.A.X|FB.T[3]|FB.Q|FB[0]", kNoSuchPath},
      {"FA[1].A", "INT +34 size 7 'in'"},
      {"FA[1].S.Y", "REAL +38 size 4 relative +2/4"}}},
    // The low 16 bits of a size that is told relatively.
    {"TYPE Big STRUCT M Big @65536 size 65538 END DFB F IN S Big size 65540 END VAR FB F",
     {{"FB.S.M.M", "BIG as structured +0 size 65538 relative +131072/2"}}},
    // Parameters that are function blocks themselves are taken out, the first one excepted.
    {"DFB Outer IN First Inner @2 size 20 P INT @22 size 2 I2 Inner @24 Q Alias @26 OUT I3 INNER @40 R REAL @44 size "
     "4\n"
     "  x INT @50 size 2 'kept' X Inner @52 LIST ARRAY[0..1] OF Inner @60 size 40 END\n"
     "DFB Inner IN A INT @2 size 2 S Sub @4 size 6 END TYPE Sub STRUCT Y INT @2 size 2 END\n"
     "TYPE Holder STRUCT I Inner @8 size 20 J Inner @28 size 20 END VAR O Outer @100 size 90 VAR H Holder",
     {{"O.First", "INNER as structured +102 size 20"},
      {"O.First.A|O.First.S|O.LIST[1].A", kNoSuchPath}, // a path must not end in a block that is not located
      {"O.First.S.Y", "INT +102 size 2 relative +6/2"},
      {"O.P", "INT +122 size 2"},
      {"O.Q", "ALIAS as structured +126 size 0"},
      {"O.R", "REAL +144 size 4"},
      {"O.I2|O.I3|O.x", kNoSuchPath}, // the last name led to the later one of two, which is gone
      {"O.LIST", "ARRAY[0..1] OF INNER as structured +160 size 40"},
      {"O.LIST[1].S.Y", "INT +160 size 2 relative +26/2"},
      {"H.J.A", "INT +30 size 2"}, // structures keep theirs
      {"H.J.S.Y", "INT +32 size 2 relative +2/2"}}},
    // Blocks that hold themselves, first.
    {"DFB Loop IN L Loop @4 size 8 S Sub @2 size 2 END TYPE Sub STRUCT Y INT @1 size 2 END VAR V Loop",
     {{"V.L.L.L", kNoSuchPath}, {"V.L.L.L.S.Y", "INT +4 size 2 relative +11/2"}}},
};

TEST(CompoundPath, GoesThroughFunctionBlocks)
{
    ExpectLookups(kFunctionBlocks);
}

} // namespace
