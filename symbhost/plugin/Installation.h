// What this program finds of its installation: the plug-in, and the component that the plug-in creates.
#pragma once

#include "platform/win32/Types.h"

#include <string>

// The plug-in that is loaded when none is named: the one beside this program. Raises CHostError when there is none.
std::string InstalledPlugin();

// That the component cannot be created, with the result of CoCreateInstance, and where it was looked for.
std::string NoComponentText(HRESULT result);

// The versions and files of program, plug-in and component, a line each; what is missing is told instead.
std::string VersionText();
