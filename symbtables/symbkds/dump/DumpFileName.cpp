#include "symbkds/dump/DumpFileName.h"

#include "platform/win32/CodePage.h"
#include "platform/win32/File.h"

namespace {

constexpr bool IsReplaced(char c)
{
    return c == ':' || c == '\\' || c == kPathSeparator;
}

// Calls `visit` with the characters of one byte.
template <class Char, class Visit>
void ForEachSingleByte(Char* text, UINT codePage, Visit visit)
{
    for (; *text; ++text) {
        if (!IsDBCSLeadByteEx(codePage, static_cast<BYTE>(*text)))
            visit(*text);
        else if (text[1])
            ++text;
    }
}

bool EndsWithSeparator(const CString& path, UINT codePage)
{
    const char* last = nullptr;
    ForEachSingleByte(static_cast<LPCSTR>(path), codePage, [&last](const char& c) { last = &c; });
    return last && *last == kPathSeparator && last[1] == '\0';
}

} // namespace

CString DumpFileName(const CString& directory, const CString& sourcePath, UINT codePage)
{
    CString flattened = sourcePath;
    ForEachSingleByte(flattened.GetBuffer(sourcePath.GetLength()), codePage, [](char& c) {
        if (IsReplaced(c))
            c = '_';
    });
    flattened.ReleaseBuffer();
    CString path = directory;
    if (!EndsWithSeparator(directory, codePage))
        path += kPathSeparator;
    return path + flattened + ".log";
}
