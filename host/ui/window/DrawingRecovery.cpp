#include "ui/window/DrawingRecovery.h"

#include <QFileInfo>

#include "ap/DocumentList.h"
#include "ed/DrawingChanges.h"
#include "rx/Console.h"
#include "ui/window/Autosave.h"
#include "ui/window/DrawingFiles.h"
#include "ui/window/RecoveryDialog.h"
#include "ui/window/WindowSettings.h"

namespace {

void tell(const QString& message)
{
    Console::instance().print(L"\n" + message.toStdWString());
}

/// "plan.dxf" becomes "plan (récupéré).dxf".
QString recoveredTitle(const LostDrawing& drawing)
{
    return QFileInfo(drawing.title).completeBaseName() + QStringLiteral(" (récupéré).dxf");
}

bool recover(const LostDrawing& drawing)
{
    const auto opened = DocumentList::instance().open(QString::fromStdString(drawing.copy.string()).toStdWString());
    if (!opened.document) {
        tell(QStringLiteral("« %1 » n'a pu être récupéré : %2")
                 .arg(drawing.title, QString::fromStdWString(opened.failure)));
        return false;
    }
    windowSettings::forgetRecentFile(QString::fromWCharArray(opened.document->fileName())); // noted while it opened
    opened.document->setUntitled(recoveredTitle(drawing).toStdWString());
    DrawingFiles::propose(*opened.document, drawing.file);
    DrawingChanges::instance().setNeverSaved(*opened.document);
    tell(QStringLiteral("« %1 » a été récupéré ; enregistrez-le.").arg(drawing.title));
    return true;
}

} // namespace

void offerRecovery(QWidget& window, Autosave& autosave)
{
    const std::vector<LostDrawing> lost = RecoveryFolder::lost();
    if (lost.empty())
        return;
    RecoveryDialog dialog(lost, &window);
    dialog.exec();
    if (dialog.choice() == RecoveryDialog::Choice::discard)
        for (const LostDrawing& drawing : lost)
            RecoveryFolder::discard(drawing);
    if (dialog.choice() != RecoveryDialog::Choice::recover)
        return;
    std::vector<LostDrawing> recovered = dialog.chosen();
    std::erase_if(recovered, [](const LostDrawing& drawing) { return !recover(drawing); });
    autosave.keepAll(); // before the old copies go
    for (const LostDrawing& drawing : recovered)
        RecoveryFolder::discard(drawing);
}
