#include <cwchar>

#include "afxwin.h"

BOOL CException::GetErrorMessage(LPTSTR message, UINT size, UINT* /*helpContext*/) const
{
    if (message != nullptr && size > 0)
        message[0] = L'\0';
    return FALSE;
}

BOOL CInvalidArgException::GetErrorMessage(LPTSTR message, UINT size, UINT* /*helpContext*/) const
{
    if (message == nullptr || size == 0)
        return FALSE;
    std::wcsncpy(message, L"Argument non valide.", size - 1);
    message[size - 1] = L'\0';
    return TRUE;
}

void AfxThrowInvalidArgException()
{
    static CInvalidArgException exception;
    throw &exception;
}

BOOL AfxInitRichEdit()
{
    return TRUE;
}
