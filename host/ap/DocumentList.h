#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ap/Document.h"

/// The open documents, in the order of opening, and what modules and reactors hear of them.
/// The database of the current document is the working one. Failures are told in French.
class DocumentList : public AcApDocManager {
public:
    static DocumentList& instance();
    DocumentList();

    /// A new, empty drawing, current and in front. It is called "Dessin1.dxf" and so on until it is saved.
    Document& create();
    struct Opened {
        Document* document = nullptr;
        std::wstring failure; ///< when there is no document
    };
    /// Opens a drawing file, current and in front. A file that is open already just comes to the front.
    Opened open(const std::wstring& path);
    /// Modules hear kSaveMsg first. @return nothing, or why it failed: the old file then still stands, unless it was a
    /// module that failed to put its data into the drawing. The drawing then counts as not saved.
    std::optional<std::wstring> saveAs(Document& document, const std::wstring& path);
    /// The same to its own file; a drawing without one refuses.
    std::optional<std::wstring> save(Document& document);
    /// Called whenever a document and its file hold the same: when it was opened or made, and after each saving. One
    /// function; null takes it away.
    void onStored(std::function<void(Document&)> stored) { m_stored = std::move(stored); }
    /// Called before each of these writes, with the file: after kSaveMsg, the document current. One function; null
    /// takes it away.
    using Saving = std::function<void(Document&, const std::wstring& path)>;
    void onSaving(Saving saving) { m_saving = std::move(saving); }
    /// Closes without saving. Refused while a command runs in it.
    std::optional<std::wstring> close(Document& document);
    /// Closes all of them, the last opened first, whatever runs: for the end of the program.
    void closeAll();

    Document* current() const { return m_current; }
    bool isOpen(const AcApDocument* document) const;
    const std::vector<std::unique_ptr<Document>>& documents() const { return m_documents; }
    /// Runs something with a document made current, then makes current what was, if it is still open.
    void withCurrent(Document& document, const std::function<void()>& task);

    AcApDocument* curDocument() const override { return m_current; }
    AcApDocument* mdiActiveDocument() const override { return m_active; }
    Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode, bool activate) override;
    Acad::ErrorStatus activateDocument(AcApDocument* document) override;
    AcApDocument* document(const AcDbDatabase* database) const override;
    int documentCount() const override { return static_cast<int>(m_documents.size()); }
    bool isApplicationContext() const override;
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode, const ACHAR* globalCmdName,
                                   const ACHAR* localCmdName, bool prompt) override;
    Acad::ErrorStatus unlockDocument(AcApDocument* document) override;
    AcApDocumentIterator* newAcApDocumentIterator() override;
    void addReactor(AcApDocManagerReactor* reactor) override;
    void removeReactor(AcApDocManagerReactor* reactor) override;

private:
    Document& add(std::unique_ptr<Document> document);
    void remove(Document& document);
    Document* byFile(const std::wstring& path) const;
    void setCurrent(Document* document);
    void setActive(Document* document);
    void changeLock(Document& document, const std::function<void()>& change, const ACHAR* command);
    void notify(const std::function<void(AcApDocManagerReactor&)>& event) const;

    std::vector<std::unique_ptr<Document>> m_documents;
    Document* m_current = nullptr;
    Document* m_active = nullptr;
    std::vector<AcApDocManagerReactor*> m_reactors;
    std::function<void(Document&)> m_stored;
    Saving m_saving;
    int m_created = 0;
};
