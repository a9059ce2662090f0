#include "platform/mfc/Exceptions.h"

// Out of line, so that the type information of each class exists once and every
// library of the process catches what another one throws.
CException::~CException() = default;
CMemoryException::~CMemoryException() = default;
COleException::~COleException() = default;
CFileException::~CFileException() = default;

void AfxThrowMemoryException()
{
    throw CMemoryException();
}

void AfxThrowOleException(HRESULT result)
{
    throw COleException(result);
}

void AfxThrowFileException(DWORD error)
{
    throw CFileException(error);
}
