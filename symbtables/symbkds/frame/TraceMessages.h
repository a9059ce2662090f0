// Every message that a symbol table sends to its host's trace sink.
//
// Hosts compare these texts byte for byte, so their spelling stays.
#pragma once

#include "platform/mfc/CString.h"
#include "symb/CTraceSink.h"

#include <initializer_list>

struct TraceMessage
{
    LPCSTR text; // with printf conversions; each is replaced by one argument
    LONG level = CTraceSink::kLevelFailure;
    bool verboseOnly = false;
};

// What is sent when an exception ends a phase.
struct ExceptionMessages
{
    TraceMessage described; // a standard exception; the second argument is its description
    TraceMessage plain;     // any other exception
};

namespace messages {

// The first argument is the export's path unless said otherwise.
inline constexpr TraceMessage kNoComponent{"KorvaPro Reader <%s>:Init: Impossible to create the KorvaProServices"};
inline constexpr TraceMessage kNoImportSource{"KorvaPro Reader <%s>:Init: Impossible to retrieve to ImportSource"};
// No argument.
inline constexpr TraceMessage kInitImportFailed{"KorvaPro Exported Reader:Init: Error calling InitImportWithoutDlg"};
// And the component's result.
inline constexpr TraceMessage kLoadFailed{"KorvaPro Reader <%s> :Init: Impossible to load the exported file .kds 0x%X"};
inline constexpr TraceMessage kNoWalkSource{"KorvaPro Reader <%s>:Init: Impossible to retrieve to WalkSource",
                                            CTraceSink::kLevelFailure, true};
inline constexpr ExceptionMessages kInitException{
    {"KorvaPro Reader <%s>:catched exception on Init with error message: %s"},
    {"KorvaPro Reader <%s>:catched exception on Init"}};

// And the runtime's error number.
inline constexpr TraceMessage kFileTimeFailed{
    "KorvaPro Reader :IsThereNewKdvFile: Impossible to test file <%s> error <%d>", CTraceSink::kLevelFileTime};

inline constexpr ExceptionMessages kVariableImportException{
    {"KorvaPro Reader <%s>:catched exception on BrowseAllItemInCMap with error message: %s"},
    {"KorvaPro Reader <%s>:catched exception on BrowseAllItemInCMap"}};
inline constexpr ExceptionMessages kDDTImportException{
    {"KorvaPro Reader <%s>:catched exception on BrowseAllDDTInCMap with error message: %s"},
    {"KorvaPro Reader <%s>:catched exception on BrowseAllDDTInCMap"}};
// And the failing result.
inline constexpr TraceMessage kDFBParameterFailed{"KorvaPro Reader <%s>: KDV file error in DFB parameter 0x%X "};
inline constexpr ExceptionMessages kDFBImportException{
    {"KorvaPro Reader <%s>:catched exception on BrowseAllDFBInCMap with error message: %s"},
    {"KorvaPro Reader <%s>:catched exception on BrowseAllDFBInCMap"}};

// Any path that cannot be analysed, not only a bad bit number.
inline constexpr TraceMessage kPathNotAnalysed{"KorvaPro Reader <%s>:SearchAndGetFF:Extract bit with bat bit index",
                                               CTraceSink::kLevelFailure, true};
inline constexpr TraceMessage kNotAnimable{
    "KorvaPro Reader <%s>:SearchAndGetFF:Can only animate LOCATED EDT which size is 1 or 2", CTraceSink::kLevelFailure,
    true};
// Hosts know this text too, but no lookup sends it: the plain name of a function block counts as not animable.
inline constexpr TraceMessage kFullDFB{"KorvaPro Reader <%s>:SearchAndGetFF:Can't animate FULL DFB",
                                       CTraceSink::kLevelFailure, true};
// A plain name that is not in the dictionary; and the name as asked for.
inline constexpr TraceMessage kNameNotFound{"KorvaPro Reader <%s> :SearchAndGetFF: invalid type for %s",
                                            CTraceSink::kLevelFailure, true};
// The root of a path that is not in the dictionary; and its name.
inline constexpr TraceMessage kRootNotFound{"KorvaPro Reader <%s>:SearchAndGetFF: unknown variable %s",
                                            CTraceSink::kLevelFailure, true};
// The only argument is the type name.
inline constexpr TraceMessage kRootTypeNotFound{"KorvaPro Exported Reader:SearchAndGetFF: invalid type %s for ",
                                                CTraceSink::kLevelFailure, true};

} // namespace messages

// The message's text with its conversions replaced, in order, by the arguments.
CString FormatTraceMessage(const TraceMessage& message, std::initializer_list<CString> arguments);

// A result or number as a message shows it: upper-case hexadecimal without leading zeros; signed decimal.
CString HexResult(HRESULT result);
CString DecimalText(int number);
