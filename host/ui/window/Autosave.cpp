#include "ui/window/Autosave.h"

#include "ap/DocumentList.h"
#include "db/ObjectOpening.h"
#include "ed/DrawingChanges.h"
#include "rx/Console.h"
#include "ui/window/RecoveryFolder.h"

namespace {

void tell(const QString& title, const QString& reason)
{
    Console::instance().print(
        QStringLiteral("\nLa copie de secours de « %1 » n'a pu être faite : %2.").arg(title, reason).toStdWString());
}

} // namespace

Autosave::Autosave(std::unique_ptr<RecoveryFolder> folder, QObject* parent) :
    QObject(parent),
    m_folder(std::move(folder))
{
    connect(&m_timer, &QTimer::timeout, this, &Autosave::keepAll);
    acDocManager->addReactor(this);
}

Autosave::~Autosave()
{
    acDocManager->removeReactor(this);
}

void Autosave::setMinutes(int minutes)
{
    constexpr int oneMinute = 60'000;
    if (minutes > 0 && m_folder)
        m_timer.start(minutes * oneMinute);
    else
        m_timer.stop();
}

void Autosave::keepAll()
{
    if (!m_folder || ObjectOpening::openCount() > 0)
        return;
    for (const auto& document : DocumentList::instance().documents())
        keep(*document);
}

void Autosave::keep(Document& document)
{
    const auto& changes = DrawingChanges::instance();
    Kept& kept = m_kept.try_emplace(&document, Kept{m_numbers + 1}).first->second;
    m_numbers = std::max(m_numbers, kept.number);
    // Drafts are the user's: one copy is enough, that of the drawing at work.
    const bool draftsOnly = &document == DocumentList::instance().current() && changes.hasNewDrafts(document);
    if (!draftsOnly && !changes.areUnsaved(document))
        return forget(kept);
    const std::uint64_t state = changes.state(document);
    if (kept.there && kept.state == state)
        return;
    const QString title = QString::fromWCharArray(document.docTitle());
    const QString file = document.isNamedDrawing() ? QString::fromWCharArray(document.fileName()) : QString();
    if (const auto failure = m_folder->describe(kept.number, file, title))
        return tell(title, *failure);
    kept.there = true; // described, if nothing more
    if (const auto failure = DrawingChanges::writeCopy(document, m_folder->copyOf(kept.number)))
        return tell(title, QString::fromStdWString(*failure));
    kept.state = state;
}

void Autosave::forget(Kept& kept)
{
    if (std::exchange(kept.there, false))
        m_folder->forget(kept.number);
}

void Autosave::documentToBeDestroyed(AcApDocument* document)
{
    const auto kept = m_kept.find(document);
    if (kept == m_kept.end())
        return;
    forget(kept->second);
    m_kept.erase(kept);
}
