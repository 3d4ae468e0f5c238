#include "services/CAcadUndoGroup.h"

#include <string>

#include "acdocman.h"
#include "dbapserv.h"
#include "oaidl.h"

namespace {

bool invoquer(IDispatch* objet, std::wstring methode)
{
    LPOLESTR nom = methode.data();
    DISPID numero = DISPID_UNKNOWN;
    if (FAILED(objet->GetIDsOfNames(IID_NULL, &nom, 1, LOCALE_USER_DEFAULT, &numero)))
        return false;
    DISPPARAMS sansArguments{};
    return SUCCEEDED(objet->Invoke(numero, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &sansArguments, nullptr,
                                   nullptr, nullptr));
}

} // namespace

int CAcadUndoGroup::profondeur = 0;
int CAcadUndoGroup::numero = 0;

CAcadUndoGroup::CAcadUndoGroup()
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    AcApDocument* const sien = db ? acDocManager->document(db) : nullptr;
    IDispatch* const objet = sien ? sien->GetIDispatch(true) : nullptr;
    if (!objet)
        return;
    if (!invoquer(objet, L"StartUndoMark")) {
        objet->Release();
        return;
    }
    document = objet;
    if (profondeur++ == 0)
        ++numero;
}

CAcadUndoGroup::~CAcadUndoGroup()
{
    if (!document)
        return;
    --profondeur;
    invoquer(document, L"EndUndoMark");
    document->Release();
}
