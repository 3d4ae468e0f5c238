#include "services/dialogueModule.h"

#include <QApplication>

#include "acutads.h"

bool dialoguesPossibles()
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        return true;
    acutPrintf(L"\nCette commande ouvre une boîte de dialogue : elle demande une session avec fenêtres, ou "
               L"un script.");
    return false;
}

QWidget* fenetreDevant()
{
    QWidget* const dialogue = QApplication::activeModalWidget();
    return dialogue ? dialogue : QApplication::activeWindow();
}

dialoguesEnRetrait::dialoguesEnRetrait()
{
    while (QWidget* const fenetre = QApplication::activeModalWidget()) {
        retires.push_back({fenetre, fenetre->focusWidget(), fenetre->pos()});
        // Not QDialog's own setVisible: that ends exec().
        fenetre->QWidget::setVisible(false);
    }
}

dialoguesEnRetrait::~dialoguesEnRetrait()
{
    for (auto place = retires.rbegin(); place != retires.rend(); ++place) {
        const retire& r = *place;
        if (!r.fenetre)
            continue;
        r.fenetre->move(r.place); // window managers place what is shown anew
        r.fenetre->QWidget::setVisible(true);
        r.fenetre->raise();
        r.fenetre->activateWindow();
        if (r.focus)
            r.focus->setFocus();
    }
}

dialogueModule::dialogueModule(QWidget* parent) : QDialog(parent)
{
    setModal(true);
}
