#include "services/dialogueFichier.h"

#include <algorithm>
#include <QFileDialog>
#include <QFileInfo>
#include <QStringList>

#include "services/dialogueModule.h"

namespace {

struct filtre {
    QString nom;
    QStringList modeles; // "*.htm", "*.html"
};

/// "nom|modèles|nom|modèles||"
std::vector<filtre> filtresDe(const std::wstring& texte)
{
    const QStringList parties = QString::fromStdWString(texte).split(u'|');
    std::vector<filtre> filtres;
    for (qsizetype i = 0; i + 1 < parties.size() && !parties[i].isEmpty(); i += 2) {
        QStringList modeles;
        for (const QString& modele : parties[i + 1].split(u';', Qt::SkipEmptyParts))
            modeles << (modele.trimmed() == u"*.*" ? QStringLiteral("*") : modele.trimmed());
        filtres.push_back({parties[i], modeles});
    }
    return filtres;
}

/// As the dialog wants it, patterns last.
QString nomComplet(const filtre& f)
{
    return QStringLiteral("%1 (%2)").arg(f.nom, f.modeles.join(u' '));
}

/// The extension that a filter gives to a name typed without one: none for "*".
QString extensionDe(const filtre& f)
{
    const QString extension = f.modeles.isEmpty() ? QString() : f.modeles.first().section(u'.', 1);
    return extension.contains(u'*') ? QString() : extension;
}

/// The name proposed stands in its folder, which is shown.
void proposer(QFileDialog& dialogue, const QString& nom)
{
    if (nom.isEmpty())
        return;
    const QFileInfo fichier(nom);
    if (fichier.isDir())
        return dialogue.setDirectory(nom);
    if (nom.contains(u'/'))
        dialogue.setDirectory(fichier.path());
    dialogue.selectFile(fichier.fileName());
}

std::optional<std::wstring> demander(const demandeFichier& demande, QFileDialog::AcceptMode mode,
                                     int* filtreChoisi = nullptr)
{
    if (!dialoguesPossibles())
        return std::nullopt;
    const bool ecrire = mode == QFileDialog::AcceptSave;
    QFileDialog dialogue(fenetreDevant());
    // The same dialog everywhere, which scripts can drive.
    dialogue.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
    dialogue.setAcceptMode(mode);
    dialogue.setFileMode(ecrire ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialogue.setLabelText(QFileDialog::Accept, ecrire ? QStringLiteral("Enregistrer") : QStringLiteral("Ouvrir"));
    dialogue.setLabelText(QFileDialog::Reject, QStringLiteral("Annuler"));
    const QString titre = ecrire ? QStringLiteral("Enregistrer sous") : QStringLiteral("Ouvrir");
    dialogue.setWindowTitle(demande.titre.empty() ? titre : QString::fromStdWString(demande.titre));

    const std::vector<filtre> filtres = filtresDe(demande.filtres);
    const QString parDefaut = QString::fromStdWString(demande.extension);
    QStringList noms;
    for (const filtre& f : filtres)
        noms << nomComplet(f);
    const auto suivreFiltre = [&](const QString& choisi) {
        // The dialog may leave out the patterns that it does not show.
        const auto f = std::ranges::find_if(
            filtres, [&](const filtre& un) { return choisi == un.nom || choisi == nomComplet(un); });
        if (filtreChoisi && f != filtres.end())
            *filtreChoisi = static_cast<int>(f - filtres.begin()) + 1;
        const QString extension = f == filtres.end() ? QString() : extensionDe(*f);
        dialogue.setDefaultSuffix(extension.isEmpty() ? parDefaut : extension);
    };
    if (!noms.isEmpty())
        dialogue.setNameFilters(noms);
    suivreFiltre(dialogue.selectedNameFilter());
    QObject::connect(&dialogue, &QFileDialog::filterSelected, &dialogue, suivreFiltre);
    proposer(dialogue, QString::fromStdWString(demande.nom));

    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty())
        return std::nullopt;
    return dialogue.selectedFiles().first().toStdWString();
}

} // namespace

std::optional<std::wstring> demanderFichierALire(const demandeFichier& demande)
{
    return demander(demande, QFileDialog::AcceptOpen);
}

std::optional<std::wstring> demanderFichierAEcrire(const demandeFichier& demande, int* filtre)
{
    return demander(demande, QFileDialog::AcceptSave, filtre);
}
