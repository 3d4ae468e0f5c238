#include "services/dialogueProgression.h"

#include <algorithm>
#include <QApplication>
#include <QProgressDialog>

#include "services/dialogueModule.h"

namespace {

/// Between two steps that are shown.
std::chrono::milliseconds cadence()
{
    return std::min(dialogueProgression::patience, std::chrono::milliseconds{100});
}

} // namespace

dialogueProgression::dialogueProgression(const wchar_t* titre, int dernier, arret a) :
    prochain(std::chrono::steady_clock::now() + cadence())
{
    if (dernier < 1 || !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    dialogue = std::make_unique<QProgressDialog>(QString::fromWCharArray(titre),
                                                 a == arret::permis ? QStringLiteral("Annuler") : QString(), 0, dernier,
                                                 fenetreDevant());
    dialogue->setObjectName("progression");
    dialogue->setWindowModality(Qt::ApplicationModal);
    // A dialog that does not show hears no cancel: Qt's own four seconds would be long to wait for the button.
    dialogue->setMinimumDuration(static_cast<int>(patience.count()));
}

dialogueProgression::~dialogueProgression() = default;

bool dialogueProgression::avancer()
{
    const int atteint = valeur++;
    if (!dialogue)
        return true;
    const auto maintenant = std::chrono::steady_clock::now();
    if (maintenant < prochain || dialogue->wasCanceled())
        return !dialogue->wasCanceled();
    prochain = maintenant + cadence();
    dialogue->setValue(atteint); // hears the user
    return !dialogue->wasCanceled();
}
