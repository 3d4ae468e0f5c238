#include "services/dialogueChamps.h"

#include <cmath>
#include <QAction>
#include <QPalette>
#include <QStyle>
#include <QToolTip>

#include "services/dialogueMessage.h"
#include "services/reelDeTexte.h"
#include "services/variablesHote.h"

namespace {

/// As the platform's dialogs write bounds: at least three digits of exponent.
QString borne(double valeur)
{
    QString texte = QString::number(valeur, 'g', 6);
    const qsizetype e = texte.indexOf(u'e');
    while (e >= 0 && texte.size() - e < 5)
        texte.insert(e + 2, u'0');
    return texte;
}

constexpr char signe[] = "signeNombre";

void direNombre(QLineEdit& champ, QAction& faute, const std::wstring& nomme)
{
    const QString texte = champ.text().trimmed();
    const QString remarque =
        texte.isEmpty() ? QString() : QString::fromStdWString(remarqueNombre(nomme, texte.toStdWString()));
    faute.setVisible(!remarque.isEmpty());
    faute.setToolTip(remarque);
    champ.setToolTip(remarque);
    QPalette couleurs;
    if (!remarque.isEmpty())
        couleurs.setColor(QPalette::Text, Qt::red);
    champ.setPalette(couleurs);
    if (!remarque.isEmpty() && champ.hasFocus())
        QToolTip::showText(champ.mapToGlobal(QPoint(0, champ.height())), remarque, &champ);
}

bool refuserChamp(QLineEdit& champ, const wchar_t* nomme, const std::wstring& phrase)
{
    surveillerNombre(champ, nomme);
    avertirErreur(phrase);
    champ.setFocus();
    champ.selectAll();
    return false;
}

} // namespace

void surveillerNombre(QLineEdit& champ, const wchar_t* nomme)
{
    if (champ.findChild<QAction*>(signe))
        return;
    auto* const faute =
        champ.addAction(champ.style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
    faute->setObjectName(signe);
    const auto dire = [&champ, faute, nom = std::wstring(nomme)] { direNombre(champ, *faute, nom); };
    QObject::connect(&champ, &QLineEdit::textChanged, faute, dire);
    dire();
}

QString texteDesigne(double coordonnee)
{
    int decimales = 4;
    lireVariable(L"LUPREC", decimales);
    return QString::number(coordonnee, 'f', decimales);
}

bool lireChamp(QLineEdit& champ, const wchar_t* nomme, double& valeur, double min, double max)
{
    const std::wstring texte = champ.text().toStdWString();
    const double lue = reelDeTexte(texte);
    const std::wstring refus = refusNombre(nomme, texte);
    if (refus.empty() && lue >= min && lue <= max) {
        valeur = lue;
        return true;
    }
    return refuserChamp(
        champ, nomme,
        refus.empty()
            ? QStringLiteral("Entrez un nombre compris entre %1 et %2.").arg(borne(min), borne(max)).toStdWString()
            : refus);
}

bool lireEntier(QLineEdit& champ, const wchar_t* nomme, int& valeur, int min, int max)
{
    double lue = 0.0;
    if (!lireChamp(champ, nomme, lue, min, max))
        return false;
    if (lue != std::floor(lue))
        return refuserChamp(champ, nomme, L"Tapez un nombre sans d\u00e9cimales.");
    valeur = static_cast<int>(lue);
    return true;
}
