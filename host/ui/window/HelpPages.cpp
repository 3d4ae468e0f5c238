#include "ui/window/HelpPages.h"

#include <algorithm>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "ed/CommandStack.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"

namespace {

/// A browser in a window of its own.
QTextBrowser& openPage(QWidget& parent, const QString& title)
{
    auto* const page = new QDialog(&parent);
    page->setAttribute(Qt::WA_DeleteOnClose);
    page->setWindowTitle(title);
    page->setObjectName(QStringLiteral("pageAide"));
    page->resize(860, 720);
    auto* const text = new QTextBrowser(page);
    text->setOpenExternalLinks(true);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text);
    page->show();
    return *text;
}

QString shown(const std::filesystem::path& path)
{
    return QDir::toNativeSeparators(QString::fromStdString(path.string()));
}

QString commandRow(const AcEdCommand& command, const ACHAR* group)
{
    const QString local = QString::fromWCharArray(command.localName());
    const QString global = QString::fromWCharArray(command.globalName());
    return QStringLiteral("| %1 | %2 | %3 |\n")
        .arg(local, local == global ? QString() : u'_' + global, QString::fromWCharArray(group));
}

} // namespace

void help_pages::showGuide(QWidget& parent)
{
    const QString file = QString::fromStdString((platform::documentationFolder() / "guide-utilisateur.md").string());
    if (!QFileInfo(file).isFile()) {
        QMessageBox::warning(&parent, QStringLiteral("Guide"),
                             QStringLiteral("Le guide de l'utilisateur n'est pas installé : %1").arg(file));
        return;
    }
    openPage(parent, QStringLiteral("Guide de l'utilisateur")).setSource(QUrl::fromLocalFile(file));
}

void help_pages::showCommands(QWidget& parent)
{
    QStringList rows;
    const std::unique_ptr<AcEdCommandIterator> each(CommandStack::instance().iterator());
    for (; !each->done(); each->next())
        rows << commandRow(*each->command(), each->commandGroup());
    std::ranges::sort(rows);
    openPage(parent, QStringLiteral("Commandes"))
        .setMarkdown(QStringLiteral("| Commande | Nom commun à toutes les langues | Groupe |\n|---|---|---|\n") +
                     rows.join(QString()));
}

void help_pages::showAbout(QWidget& parent)
{
    QMessageBox::about(
        &parent, QStringLiteral("À propos de Vela"),
        QStringLiteral("<b>Vela %1</b><p>Topographie : polygonales, tables de points et dessins.</p>"
                       "<p>Dossier support installé :<br>%2</p><p>Vos codes, symboles et copies de secours :<br>%3</p>"
                       "<p>Vos réglages :<br>%4</p>")
            .arg(QApplication::applicationVersion(), shown(platform::supportFolder()), shown(platform::dataFolder()),
                 shown(platform::registryFile())));
}
