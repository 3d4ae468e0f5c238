#include "services/dialogueFichier.h"

#include <algorithm>
#include <functional>
#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHash>
#include <QIcon>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStringList>

#include "services/dialogueMessage.h"
#include "services/dialogueModule.h"
#include "services/variablesHote.h"

namespace {

constexpr int tailleImages = 40; // pixels

/// "*." stands for names without an extension, which no pattern of the dialog can say.
constexpr QLatin1StringView sansExtension("*.");

struct filtre {
    QString nom;
    QStringList modeles; // "*.htm", "*.html"
    bool sansExtension;
};

/// "nom|modèles|nom|modèles||"
std::vector<filtre> filtresDe(const std::wstring& texte)
{
    const QStringList parties = QString::fromStdWString(texte).split(u'|');
    std::vector<filtre> filtres;
    for (qsizetype i = 0; i + 1 < parties.size() && !parties[i].isEmpty(); i += 2) {
        QStringList modeles;
        for (const QString& modele : parties[i + 1].split(u';', Qt::SkipEmptyParts))
            modeles << (modele.trimmed() == u"*.*" || modele.trimmed() == sansExtension ? QStringLiteral("*")
                                                                                        : modele.trimmed());
        filtres.push_back({parties[i], modeles, parties[i + 1].trimmed() == sansExtension});
    }
    return filtres;
}

/// As the dialog wants it, patterns last.
QString nomComplet(const filtre& f)
{
    return QStringLiteral("%1 (%2)").arg(f.nom, f.modeles.join(u' '));
}

using imageDeFichier = std::function<QIcon(const QString&)>;

/// Hides the files with an extension while names without one are asked for, and gives files their pictures.
class vueFichiers : public QSortFilterProxyModel {
public:
    vueFichiers(QObject* parent, imageDeFichier image) : QSortFilterProxyModel(parent), m_image(std::move(image)) {}

    QVariant data(const QModelIndex& index, int role) const override
    {
        const auto* const fichiers = qobject_cast<const QFileSystemModel*>(sourceModel());
        const QModelIndex source = mapToSource(index);
        if (m_image && role == Qt::DecorationRole && index.column() == 0 && fichiers && !fichiers->isDir(source)) {
            const QString fichier = fichiers->filePath(source);
            const auto connue =
                m_images.contains(fichier) ? m_images.find(fichier) : m_images.insert(fichier, m_image(fichier));
            if (!connue->isNull())
                return *connue;
        }
        return QSortFilterProxyModel::data(index, role);
    }

    void montrerSansExtension(bool seuls)
    {
        m_seuls = seuls;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int rang, const QModelIndex& parent) const override
    {
        const auto* const fichiers = qobject_cast<const QFileSystemModel*>(sourceModel());
        const QModelIndex index = sourceModel()->index(rang, 0, parent);
        return !m_seuls || !fichiers || fichiers->isDir(index) ||
               QFileInfo(fichiers->fileName(index)).suffix().isEmpty();
    }

private:
    imageDeFichier m_image;
    mutable QHash<QString, QIcon> m_images;
    bool m_seuls = false;
};

/// The extension that a filter gives to a name typed without one: none for "*".
QString extensionDe(const filtre& f)
{
    const QString extension = f.modeles.isEmpty() ? QString() : f.modeles.first().section(u'.', 1);
    return extension.contains(u'*') ? QString() : extension;
}

/// The name proposed stands in its folder, which is shown; without one, the folder of the drawing is.
void proposer(QFileDialog& dialogue, const std::wstring& propose)
{
    const QString nom = QString::fromStdWString(propose).replace(u'\\', u'/');
    std::wstring dossier;
    if (lireVariable(L"DWGPREFIX", dossier) && QFileInfo(QString::fromStdWString(dossier)).isDir())
        dialogue.setDirectory(QString::fromStdWString(dossier));
    if (nom.isEmpty())
        return;
    const QFileInfo fichier(nom);
    if (fichier.isDir())
        return dialogue.setDirectory(nom);
    if (nom.contains(u'/'))
        dialogue.setDirectory(fichier.path());
    // Of files to open the dialog would take those selected together with the one that is typed.
    if (dialogue.acceptMode() == QFileDialog::AcceptSave)
        dialogue.selectFile(fichier.fileName());
}

/// Files are found whatever the letter case of their names: one that differs by it alone is the one written, and the
/// dialog, which knows it by another name, has not asked.
bool remplacementAccepte(const QString& fichier)
{
    const QFileInfo voulu(fichier);
    const QString nom = voulu.fileName();
    if (voulu.exists())
        return true;
    for (const QString& present : voulu.dir().entryList(QDir::Files | QDir::Hidden))
        if (present.compare(nom, Qt::CaseInsensitive) == 0)
            return confirmerRemplacement(present.toStdWString());
    return true;
}

/// Whether a file of that name shows under the filter.
bool convient(const filtre& f, const QString& nom)
{
    return QDir::match(f.modeles, QFileInfo(nom).fileName());
}

/// The dialog opens what it shows only: a file that is there, typed by its name, brings a filter that shows it.
void suivreNomTape(QFileDialog& dialogue, const std::vector<filtre>& filtres,
                   const std::function<void(const QString&)>& filtreChange)
{
    auto* const champ = dialogue.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!champ)
        return;
    QObject::connect(
        champ, &QLineEdit::textChanged, &dialogue, [&dialogue, &filtres, filtreChange](const QString& nom) {
            const QString choisi = dialogue.selectedNameFilter();
            const auto courant = std::ranges::find_if(
                filtres, [&](const filtre& f) { return choisi == f.nom || choisi == nomComplet(f); });
            if (courant == filtres.end() || convient(*courant, nom) ||
                !QFileInfo(dialogue.directory().absoluteFilePath(nom)).isFile())
                return;
            const auto autre = std::ranges::find_if(filtres, [&](const filtre& f) { return convient(f, nom); });
            if (autre == filtres.end())
                return;
            dialogue.selectNameFilter(nomComplet(*autre));
            filtreChange(nomComplet(*autre));
            if (auto* const boutons = dialogue.findChild<QDialogButtonBox*>())
                boutons->button(QDialogButtonBox::Open)->setEnabled(true); // the dialog has judged by the other filter
        });
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
    dialogue.setLabelText(QFileDialog::FileName, QStringLiteral("Nom du fichier"));
    dialogue.setLabelText(QFileDialog::FileType, QStringLiteral("Type de fichier"));
    const QString titre = ecrire ? QStringLiteral("Enregistrer sous") : QStringLiteral("Ouvrir");
    dialogue.setWindowTitle(demande.titre.empty() ? titre : QString::fromStdWString(demande.titre));

    const std::vector<filtre> filtres = filtresDe(demande.filtres);
    const QString parDefaut = QString::fromStdWString(demande.extension);
    QStringList noms;
    for (const filtre& f : filtres)
        noms << nomComplet(f);
    auto* const vue = new vueFichiers(&dialogue, demande.image);
    dialogue.setProxyModel(vue);
    if (demande.image)
        for (auto* const liste : dialogue.findChildren<QAbstractItemView*>())
            if (liste->objectName() == u"listView" || liste->objectName() == u"treeView")
                liste->setIconSize({tailleImages, tailleImages});
    const auto suivreFiltre = [&](const QString& choisi) {
        // The dialog may leave out the patterns that it does not show.
        const auto f = std::ranges::find_if(
            filtres, [&](const filtre& un) { return choisi == un.nom || choisi == nomComplet(un); });
        if (filtreChoisi && f != filtres.end())
            *filtreChoisi = static_cast<int>(f - filtres.begin()) + 1;
        vue->montrerSansExtension(f != filtres.end() && f->sansExtension);
        const QString extension = f == filtres.end() ? QString() : extensionDe(*f);
        dialogue.setDefaultSuffix(extension.isEmpty() ? parDefaut : extension);
    };
    if (!noms.isEmpty())
        dialogue.setNameFilters(noms);
    suivreFiltre(dialogue.selectedNameFilter());
    QObject::connect(&dialogue, &QFileDialog::filterSelected, &dialogue, suivreFiltre);
    if (!ecrire)
        suivreNomTape(dialogue, filtres, suivreFiltre);
    proposer(dialogue, demande.nom);

    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty())
        return std::nullopt;
    const QString fichier = dialogue.selectedFiles().first();
    if (ecrire && !remplacementAccepte(fichier))
        return std::nullopt;
    return fichier.toStdWString();
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

bool confirmerRemplacement(const std::wstring& nom)
{
    return demanderOuiNon(L"Enregistrer sous", L"« " + nom + L" » existe déjà. Le remplacer ?");
}
