#pragma once

#include "symb/CSymb.h"

#include <string>

// The export of a generated project with that many variables; written at first use.
const std::string& ProjectPath(int variables);

// A symbol table of the built plug-in with that project loaded; loaded at first use and kept.
CSymb& LoadedProject(int variables);

// The same with the project of one wide structure.
CSymb& LoadedWideProject();

// A new, empty symbol table of the built plug-in.
CSymb* NewSymbolTable();
