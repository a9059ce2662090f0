// The order in which a thread takes the plug-in's locks, lower ranks first.
#pragma once

// The lock of a symbol table; never those of two at a time.
inline constexpr int kSymbolTableLockRank = 1;
// The lock of all loads of the process.
inline constexpr int kImportLockRank = 2;
