#include "ui/script/FileDialogAnswer.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

#include "platform/Paths.h"
#include "ui/script/ScriptError.h"

namespace {

QString withoutQuotes(const QString& path)
{
    const QString name = path.trimmed();
    return name.size() >= 2 && name.startsWith(u'"') && name.endsWith(u'"') ? name.mid(1, name.size() - 2) : name;
}

} // namespace

QString scriptPath(const QString& path, const QString& besideScript, bool mustExist)
{
    // As every name that users type: drive letters, backslashes, whatever the letter case.
    const QString native = QString::fromStdString(platform::nativePath(withoutQuotes(path).toStdWString()).string());
    const QString here = QDir::current().absoluteFilePath(native);
    const QString beside = QDir(besideScript).absoluteFilePath(native);
    return mustExist && !QFileInfo::exists(here) && QFileInfo::exists(beside) ? beside : here;
}

void answerFileDialog(QFileDialog& dialog, const QString& path, const QString& besideScript)
{
    const bool opens = dialog.acceptMode() == QFileDialog::AcceptOpen;
    const QString file = QDir::cleanPath(scriptPath(path, besideScript, opens));
    if (opens && !QFileInfo::exists(file))
        throw ScriptError(QStringLiteral("%1 : fichier introuvable.").arg(file));
    auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    if (!name || !buttons)
        throw ScriptError(QStringLiteral("le dialogue de fichier du système ne reçoit pas de script."));
    name->setText(file);
    QPushButton* const accept = buttons->button(opens ? QDialogButtonBox::Open : QDialogButtonBox::Save);
    if (!accept || !accept->isEnabled())
        throw ScriptError(QStringLiteral("le dialogue « %1 » refuse le fichier %2.").arg(dialog.windowTitle(), file));
    accept->click();
}
