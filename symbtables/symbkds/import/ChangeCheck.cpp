// Notices that the export file has changed since it was loaded.
#include "platform/win32/FileStat.h"
#include "symbkds/frame/CSymbXml.h"

BOOL CSymbXml::IsThereNewKdvFile(BOOL update)
{
    struct _stat32 status;
    if (_stat32(sourcePath, &status) != 0) {
        SendTrace(messages::kFileTimeFailed, {sourcePath, DecimalText(errno)});
        return FALSE;
    }
    const BOOL changed = fileTime == 0 || fileTime != status.st_mtime;
    if (update)
        fileTime = status.st_mtime;
    return changed;
}

void CSymbXml::CheckForNewFile()
{
    if (!IsThereNewKdvFile(FALSE))
        return;
    // Called as the host would call it; the dictionaries in place serve the request whatever it answers.
    void* reopened = nullptr;
    ReOpenDatabase(&reopened);
}
