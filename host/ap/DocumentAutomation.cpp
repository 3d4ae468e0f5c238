#include "ap/DocumentAutomation.h"

#include "ap/Document.h"
#include "platform/LetterCase.h"

namespace {

constexpr DISPID kStartUndoMark = 1;
constexpr DISPID kEndUndoMark = 2;

DISPID methodCalled(const wchar_t* name)
{
    if (platform::equalNoCase(name, L"StartUndoMark"))
        return kStartUndoMark;
    return platform::equalNoCase(name, L"EndUndoMark") ? kEndUndoMark : DISPID_UNKNOWN;
}

} // namespace

ULONG DocumentAutomation::Release()
{
    const ULONG users = --m_users;
    if (users == 0)
        delete this;
    return users;
}

HRESULT DocumentAutomation::GetIDsOfNames(REFIID, LPOLESTR* names, UINT nameCount, LCID, DISPID* ids)
{
    if (!names || !ids || nameCount == 0 || !names[0])
        return E_INVALIDARG;
    ids[0] = methodCalled(names[0]);
    for (UINT i = 1; i < nameCount; ++i) // the names of arguments follow: these methods have none
        ids[i] = DISPID_UNKNOWN;
    return ids[0] == DISPID_UNKNOWN || nameCount > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT DocumentAutomation::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                                   UINT*)
{
    if ((id != kStartUndoMark && id != kEndUndoMark) || (flags & DISPATCH_METHOD) == 0)
        return DISP_E_MEMBERNOTFOUND;
    if (parameters && parameters->cArgs > 0)
        return DISP_E_BADPARAMCOUNT;
    if (!m_document)
        return E_FAIL;
    if (id == kEndUndoMark)
        return m_document->endUndoMark() ? S_OK : E_FAIL;
    m_document->startUndoMark();
    return S_OK;
}
