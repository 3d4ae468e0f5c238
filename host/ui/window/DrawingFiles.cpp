#include "ui/window/DrawingFiles.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "ap/DocumentData.h"
#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "ed/DrawingChanges.h"
#include "gi/EntityGraphics.h"
#include "rx/Console.h"
#include "ui/window/WindowSettings.h"

namespace {

QString titleOf(const Document& document)
{
    return QString::fromWCharArray(document.docTitle());
}

/// What the window knows of a document's file.
struct FileNotes {
    QString proposed; ///< by saving, while there is no file
    QString noted;    ///< among the recent files
};

FileNotes& notesOf(Document& document)
{
    static DocumentData<FileNotes> notes;
    return notes.of(document);
}

/// That of the drawing in hand; of one without a file, where files were opened and saved last.
QString startFolder()
{
    const Document* const document = DocumentList::instance().current();
    return document && document->isNamedDrawing() ? QFileInfo(QString::fromWCharArray(document->fileName())).path()
                                                  : windowSettings::text(L"dossier");
}

/// "dxf;dwg" as Qt wants it.
QString filterOf(const std::wstring& extensions)
{
    QStringList patterns = QString::fromStdWString(extensions).split(u';');
    for (QString& pattern : patterns)
        pattern.prepend(QLatin1String("*."));
    return QStringLiteral("Fichiers (%1);;Tous les fichiers (*)").arg(patterns.join(u' '));
}

/// The whole path of a name to propose. Drawings are saved as DXF.
QString proposedPath(const CommandHooks::FileQuestion& question)
{
    QString name = QString::fromStdWString(question.proposed);
    Document* const document = DocumentList::instance().current();
    if (document && !document->isNamedDrawing() && name == QString::fromWCharArray(document->docTitle()))
        name = notesOf(*document).proposed.isEmpty() ? name : notesOf(*document).proposed;
    const QFileInfo file(name);
    const QString folder = file.isAbsolute() ? file.path() : startFolder();
    const QString extension = QString::fromStdWString(question.extensions).section(u';', 0, 0);
    return name.isEmpty() ? QString() : folder + u'/' + file.completeBaseName() + u'.' + extension;
}

/// What was repaired or found wrong when the drawing was read.
void tellProblems(Document& document)
{
    if (const std::string notDrawn = notDrawnSentence(*document.database()); !notDrawn.empty())
        Console::instance().print(L"\n" + QString::fromStdString(notDrawn).toStdWString() + L".");
    constexpr std::size_t most = 20;
    const auto& problems = document.database()->impl().problems().all();
    for (std::size_t i = 0; i < std::min(most, problems.size()); ++i)
        Console::instance().print(L"\n" + QString::fromStdString(problems[i]).toStdWString());
    if (problems.size() > most)
        Console::instance().print(L"\n... et " + std::to_wstring(problems.size() - most) + L" autres remarques.");
}

} // namespace

DrawingFiles::DrawingFiles(QWidget& window) : QObject(&window), m_window(window) {}

std::optional<std::wstring> DrawingFiles::choose(const CommandHooks::FileQuestion& question)
{
    QFileDialog dialog(&m_window, QString::fromStdWString(question.title), startFolder(),
                       filterOf(question.extensions));
    dialog.setFileMode(question.toSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setAcceptMode(question.toSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    if (question.toSave)
        dialog.setDefaultSuffix(QString::fromStdWString(question.extensions).section(u';', 0, 0));
    if (const QString proposed = proposedPath(question); !proposed.isEmpty()) {
        dialog.setDirectory(QFileInfo(proposed).path());
        dialog.selectFile(QFileInfo(proposed).fileName());
    }
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    windowSettings::setText(L"dossier", QFileInfo(path).path());
    return path.toStdWString();
}

bool DrawingFiles::open(const QString& path)
{
    const auto opened = DocumentList::instance().open(path.toStdWString());
    if (!opened.document) {
        windowSettings::forgetRecentFile(path);
        tellFailure(opened.failure);
        return false;
    }
    windowSettings::addRecentFile(QString::fromWCharArray(opened.document->fileName()));
    note(*opened.document);
    tellProblems(*opened.document);
    return true;
}

void DrawingFiles::propose(Document& document, const QString& path)
{
    notesOf(document).proposed = path;
}

void DrawingFiles::note(Document& document)
{
    const QString path = QString::fromWCharArray(document.fileName());
    if (document.isNamedDrawing() && std::exchange(notesOf(document).noted, path) != path)
        windowSettings::addRecentFile(path);
}

bool DrawingFiles::save(Document& document)
{
    std::optional<std::wstring> path = document.fileName();
    if (!document.isNamedDrawing())
        path = choose(CommandHooks::drawingToSave(document.docTitle()));
    if (!path)
        return false;
    const auto failure = DocumentList::instance().saveAs(document, *path);
    if (failure)
        tellFailure(*failure);
    else
        note(document);
    return !failure;
}

bool DrawingFiles::mayClose(Document& document)
{
    if (!DrawingChanges::instance().areUnsaved(document))
        return true;
    DocumentList::instance().activateDocument(&document);
    QMessageBox question(QMessageBox::Warning, QStringLiteral("Vela"),
                         QStringLiteral("Enregistrer les modifications de « %1 » ?").arg(titleOf(document)),
                         QMessageBox::NoButton, &m_window);
    question.setObjectName(QStringLiteral("questionFermeture"));
    const auto* const save = question.addButton(QStringLiteral("Enregistrer"), QMessageBox::AcceptRole);
    const auto* const drop = question.addButton(QStringLiteral("Ne pas enregistrer"), QMessageBox::DestructiveRole);
    question.setEscapeButton(question.addButton(QStringLiteral("Annuler"), QMessageBox::RejectRole));
    question.exec();
    if (question.clickedButton() == save)
        return this->save(document);
    return question.clickedButton() == drop;
}

bool DrawingFiles::close(Document& document)
{
    if (!mayClose(document))
        return false;
    if (const auto failure = DocumentList::instance().close(document)) {
        tellFailure(*failure);
        return false;
    }
    return true;
}

bool DrawingFiles::closeAll()
{
    while (Document* const document = DocumentList::instance().current())
        if (!close(*document))
            return false;
    return true;
}

void DrawingFiles::tellFailure(const std::wstring& failure)
{
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Vela"), QString::fromStdWString(failure), QMessageBox::Ok,
                    &m_window);
    box.setObjectName(QStringLiteral("echecFichier"));
    box.exec();
}
