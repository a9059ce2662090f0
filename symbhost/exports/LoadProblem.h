// Whether an export can be read, and why not.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CInterfacePtr.h"

#include <string>

// What the component tells about a file. Line and column count from 1, in characters; 0 and empty texts where the
// component does not know.
struct LoadProblem
{
    HRESULT result = S_OK; // of the load
    LONG line = 0;
    LONG column = 0;
    bool hasComponent = false; // whether the component could be created at all
    bool isReported = false;   // whether the component has what follows here
    std::string fault;         // what is not well-formed there
    std::string declaredEncoding;
    std::string usedEncoding;

    // For people; empty when there is no problem.
    std::string Text() const;
    // Whether the file can be read but is no XML.
    bool IsNotXml() const;
    // Whether it was read in another encoding than the declared one.
    bool IsEncodingIgnored() const;
};

// Has the component load the file at `path` (ANSI code page). `component` stays null when it cannot be created.
LoadProblem LoadByComponent(const std::string& path, CInterfacePtr<ImportSource>& component);
// Loads it for its problem alone.
LoadProblem FindLoadProblem(const std::string& path);
