#include "ap/DocumentList.h"

#include <algorithm>
#include <filesystem>

#include "platform/CodePage.h"
#include "platform/Paths.h"
#include "rx/HostSession.h"
#include "rx/ModuleTable.h"

#include "dbapserv.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)

namespace fs = std::filesystem;

namespace {

/// The path under which the session knows a file.
std::wstring fullPath(const std::wstring& path)
{
    return platform::wideFromUtf8(fs::absolute(platform::nativePath(path)).lexically_normal().string());
}

class DocumentIterator : public AcApDocumentIterator {
public:
    explicit DocumentIterator(std::vector<AcApDocument*> documents) : m_documents(std::move(documents)) {}
    bool done() const override { return m_at >= m_documents.size(); }
    void step() override { ++m_at; }
    AcApDocument* document() const override { return done() ? nullptr : m_documents[m_at]; }

private:
    std::vector<AcApDocument*> m_documents;
    std::size_t m_at = 0;
};

} // namespace

AcApDocManager* acDocManagerPtr()
{
    return &DocumentList::instance();
}

DocumentList& DocumentList::instance()
{
    return HostSession::part<DocumentList>();
}

DocumentList::DocumentList()
{
    ModuleTable::instance().setDocumentVisitor([this](const std::function<void()>& visit) {
        std::vector<Document*> open;
        for (const auto& document : m_documents)
            open.push_back(document.get());
        for (Document* document : open)
            if (isOpen(document))
                withCurrent(*document, visit);
    });
}

// ---- opening, saving, closing

Document& DocumentList::create()
{
    const std::wstring title = L"Dessin" + std::to_wstring(++m_created) + L".dxf";
    return add(std::make_unique<Document>(std::make_unique<AcDbDatabase>(true, false), L"", title));
}

DocumentList::Opened DocumentList::open(const std::wstring& path)
{
    if (Document* document = byFile(fullPath(path))) {
        setActive(document);
        return {document, L""};
    }
    auto database = std::make_unique<AcDbDatabase>(false, false);
    if (database->readDwgFile(fullPath(path).c_str()) != Acad::eOk)
        return {nullptr, database->lastError()};
    const ACHAR* readFrom = nullptr; // the drawing may have been found under another extension
    const bool told = database->getFilename(readFrom) == Acad::eOk && readFrom;
    auto document = std::make_unique<Document>(std::move(database), L"", L"");
    document->setFile(fullPath(told ? readFrom : path));
    return {&add(std::move(document)), L""};
}

Document& DocumentList::add(std::unique_ptr<Document> added)
{
    Document* document = added.get();
    m_documents.push_back(std::move(added));
    notify([document](AcApDocManagerReactor& reactor) { reactor.documentCreated(document); });
    setActive(document);
    withCurrent(*document, [] { ModuleTable::instance().tellAll(AcRx::kLoadDwgMsg); });
    if (m_stored)
        m_stored(*document);
    return *document;
}

std::optional<std::wstring> DocumentList::save(Document& document)
{
    if (!document.isNamedDrawing())
        return L"Le dessin « " + std::wstring(document.docTitle()) + L" » n'a pas encore de fichier.";
    return saveAs(document, document.fileName());
}

std::optional<std::wstring> DocumentList::saveAs(Document& document, const std::wstring& path)
{
    const std::wstring file = fullPath(path);
    const Document* other = byFile(file);
    if (other && other != &document)
        return L"Le fichier « " + file + L" » est ouvert dans un autre dessin.";
    Acad::ErrorStatus status = Acad::eOk;
    std::vector<std::wstring> failed;
    withCurrent(document, [&] {
        failed = ModuleTable::instance().tellAll(AcRx::kSaveMsg);
        if (m_saving)
            m_saving(document, file);
        status = document.database()->saveAs(file.c_str());
    });
    if (status != Acad::eOk)
        return document.database()->lastError();
    const ACHAR* savedAs = nullptr; // a DWG's name stood for the DXF beside it
    const bool told = document.database()->getFilename(savedAs) == Acad::eOk && savedAs;
    document.setFile(fullPath(told ? savedAs : file));
    if (!failed.empty())
        return L"Le dessin est enregistré, mais sans les données du module « " + failed.front() + L" ».";
    if (m_stored)
        m_stored(document);
    return std::nullopt;
}

std::optional<std::wstring> DocumentList::close(Document& document)
{
    if (!document.isQuiescent())
        return L"Le dessin « " + std::wstring(document.docTitle()) +
               L" » ne peut être fermé : une commande est en cours.";
    remove(document);
    return std::nullopt;
}

void DocumentList::closeAll()
{
    while (!m_documents.empty())
        remove(*m_documents.back());
}

void DocumentList::remove(Document& document)
{
    withCurrent(document, [this, &document] {
        ModuleTable::instance().tellAll(AcRx::kUnloadDwgMsg);
        notify([&document](AcApDocManagerReactor& reactor) { reactor.documentToBeDestroyed(&document); });
    });
    const auto place = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&document](const auto& d) { return d.get() == &document; });
    std::unique_ptr<Document> closed = std::move(*place);
    m_documents.erase(place);
    Document* last = m_documents.empty() ? nullptr : m_documents.back().get();
    if (m_active == closed.get())
        setActive(last);
    else if (m_current == closed.get())
        setCurrent(m_active);
    const std::wstring fileName = closed->fileName();
    closed.reset();
    notify([&fileName](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(fileName.c_str()); });
}

// ---- which is current

bool DocumentList::isOpen(const AcApDocument* document) const
{
    return std::any_of(m_documents.begin(), m_documents.end(),
                       [document](const auto& open) { return open.get() == document; });
}

Document* DocumentList::byFile(const std::wstring& path) const
{
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&path](const auto& document) { return path == document->fileName(); });
    return found == m_documents.end() ? nullptr : found->get();
}

void DocumentList::setCurrent(Document* document)
{
    acdbHostApplicationServices()->setWorkingDatabase(document ? document->database() : nullptr);
    if (m_current == document)
        return;
    m_current = document;
    notify([document](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(document); });
}

void DocumentList::setActive(Document* document)
{
    setCurrent(document);
    if (m_active == document)
        return;
    m_active = document;
    if (document)
        notify([document](AcApDocManagerReactor& reactor) { reactor.documentActivated(document); });
}

void DocumentList::withCurrent(Document& document, const std::function<void()>& task)
{
    struct Return {
        DocumentList& list;
        Document* before;
        ~Return()
        {
            if (list.isOpen(before))
                list.setCurrent(before);
        }
    };
    const Return back{*this, m_current};
    setCurrent(&document);
    task();
}

Acad::ErrorStatus DocumentList::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode, bool activate)
{
    if (!isOpen(document))
        return Acad::eNoDocument;
    if (mode != AcAp::kNone)
        if (const Acad::ErrorStatus status = lockDocument(document, mode, nullptr, nullptr, true); status != Acad::eOk)
            return status;
    if (activate)
        setActive(static_cast<Document*>(document));
    else
        setCurrent(static_cast<Document*>(document));
    return Acad::eOk;
}

Acad::ErrorStatus DocumentList::activateDocument(AcApDocument* document)
{
    return setCurDocument(document, AcAp::kNone, true);
}

AcApDocument* DocumentList::document(const AcDbDatabase* database) const
{
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [database](const auto& open) { return open->database() == database; });
    return found == m_documents.end() ? nullptr : found->get();
}

bool DocumentList::isApplicationContext() const
{
    return std::all_of(m_documents.begin(), m_documents.end(), [](const auto& open) { return open->isQuiescent(); });
}

AcApDocumentIterator* DocumentList::newAcApDocumentIterator()
{
    std::vector<AcApDocument*> open;
    for (const auto& document : m_documents)
        open.push_back(document.get());
    return new DocumentIterator(std::move(open));
}

// ---- locks

Acad::ErrorStatus DocumentList::lockDocument(AcApDocument* document, AcAp::DocLockMode mode, const ACHAR* globalCmdName,
                                             const ACHAR* /*localCmdName*/, bool /*prompt*/)
{
    if (!isOpen(document))
        return Acad::eNoDocument;
    if (mode == AcAp::kNone || mode == AcAp::kNotLocked)
        return Acad::eInvalidInput;
    auto& locked = static_cast<Document&>(*document);
    changeLock(
        locked, [&locked, mode] { locked.pushLock(mode); }, globalCmdName);
    return Acad::eOk;
}

Acad::ErrorStatus DocumentList::unlockDocument(AcApDocument* document)
{
    if (!isOpen(document))
        return Acad::eNoDocument;
    auto& locked = static_cast<Document&>(*document);
    if (locked.lockCount() == 0)
        return Acad::eLockViolation;
    changeLock(
        locked, [&locked] { locked.popLock(); }, nullptr);
    return Acad::eOk;
}

void DocumentList::changeLock(Document& document, const std::function<void()>& change, const ACHAR* command)
{
    const AcAp::DocLockMode before = document.myLockMode();
    change();
    const AcAp::DocLockMode after = document.myLockMode();
    if (before != after)
        notify([&](AcApDocManagerReactor& reactor) {
            reactor.documentLockModeChanged(&document, before, after, after, command ? command : L"");
        });
}

// ---- reactors

void DocumentList::addReactor(AcApDocManagerReactor* reactor)
{
    if (reactor && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void DocumentList::removeReactor(AcApDocManagerReactor* reactor)
{
    std::erase(m_reactors, reactor);
}

void DocumentList::notify(const std::function<void(AcApDocManagerReactor&)>& event) const
{
    const std::vector<AcApDocManagerReactor*> told = m_reactors; // they may come and go meanwhile
    for (AcApDocManagerReactor* reactor : told)
        if (std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end())
            event(*reactor);
}
