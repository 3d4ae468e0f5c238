#pragma once

#include "oaidl.h"

class Document;

/// A document's methods by name: "StartUndoMark" and "EndUndoMark". Lives as long as someone counts on it; once the
/// document is closed every call fails.
class DocumentAutomation final : public IDispatch {
public:
    /// Held once by its maker.
    explicit DocumentAutomation(Document* document) : m_document(document) {}
    void documentClosed() { m_document = nullptr; }

    ULONG AddRef() override { return ++m_users; }
    ULONG Release() override;
    HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT nameCount, LCID locale, DISPID* ids) override;
    HRESULT Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* exception, UINT* wrongArgument) override;

private:
    ~DocumentAutomation() = default;

    Document* m_document;
    ULONG m_users = 1;
};
