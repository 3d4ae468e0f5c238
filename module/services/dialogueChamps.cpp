#include "services/dialogueChamps.h"

#include "services/dialogueMessage.h"
#include "services/reelDeTexte.h"

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

} // namespace

bool lireChamp(QLineEdit& champ, const wchar_t* nomme, double& valeur, double min, double max)
{
    const std::wstring texte = champ.text().toStdWString();
    const double lue = reelDeTexte(texte);
    const std::wstring remarque = remarqueNombre(nomme, texte);
    const bool bornee = lue >= min && lue <= max;
    if (bornee && remarque.empty()) {
        valeur = lue;
        return true;
    }
    avertirErreur(
        bornee ? remarque
               : QStringLiteral("Entrez un nombre compris entre %1 et %2.").arg(borne(min), borne(max)).toStdWString());
    champ.setFocus();
    champ.selectAll();
    return false;
}
