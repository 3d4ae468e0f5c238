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

/// Whether a file of that name shows under the filter.
bool convient(const filtre& f, const QString& nom)
{
    return QDir::match(f.modeles, QFileInfo(nom).fileName());
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

/// One question for a file. The same dialog everywhere, which scripts can drive.
class boiteFichier {
public:
    boiteFichier(const demandeFichier& demande, QFileDialog::AcceptMode mode) :
        m_filtres(filtresDe(demande.filtres)),
        m_extension(QString::fromStdWString(demande.extension)),
        m_dialogue(fenetreDevant()),
        m_vue(new vueFichiers(&m_dialogue, demande.image))
    {
        m_dialogue.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
        m_dialogue.setAcceptMode(mode);
        m_dialogue.setFileMode(aEcrire() ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
        mettreTextes(QString::fromStdWString(demande.titre));
        m_dialogue.setProxyModel(m_vue);
        if (demande.image)
            agrandirImages();
        suivreFiltres();
        if (!aEcrire())
            suivreNomTape();
        proposer(QString::fromStdWString(demande.nom).replace(u'\\', u'/'));
    }

    /// @param rang if given, receives that of the filter chosen, from 1
    std::optional<std::wstring> demander(int* rang)
    {
        const bool choisi = m_dialogue.exec() == QDialog::Accepted && !m_dialogue.selectedFiles().isEmpty();
        if (const filtre* const f = filtreNomme(m_dialogue.selectedNameFilter()); f && rang)
            *rang = static_cast<int>(f - m_filtres.data()) + 1;
        if (!choisi)
            return std::nullopt;
        const QString fichier = m_dialogue.selectedFiles().first();
        return !aEcrire() || remplacementAccepte(fichier) ? std::optional(fichier.toStdWString()) : std::nullopt;
    }

private:
    bool aEcrire() const { return m_dialogue.acceptMode() == QFileDialog::AcceptSave; }

    void mettreTextes(const QString& titre)
    {
        const QString usuel = aEcrire() ? QStringLiteral("Enregistrer sous") : QStringLiteral("Ouvrir");
        m_dialogue.setWindowTitle(titre.isEmpty() ? usuel : titre);
        m_dialogue.setLabelText(QFileDialog::Accept,
                                aEcrire() ? QStringLiteral("Enregistrer") : QStringLiteral("Ouvrir"));
        m_dialogue.setLabelText(QFileDialog::Reject, QStringLiteral("Annuler"));
        m_dialogue.setLabelText(QFileDialog::FileName, QStringLiteral("Nom du fichier"));
        m_dialogue.setLabelText(QFileDialog::FileType, QStringLiteral("Type de fichier"));
    }

    void agrandirImages()
    {
        for (auto* const liste : m_dialogue.findChildren<QAbstractItemView*>())
            if (liste->objectName() == u"listView" || liste->objectName() == u"treeView")
                liste->setIconSize({tailleImages, tailleImages});
    }

    /// The dialog may leave out the patterns that it does not show. Null when it shows none of ours.
    const filtre* filtreNomme(const QString& nom) const
    {
        const auto f =
            std::ranges::find_if(m_filtres, [&](const filtre& un) { return nom == un.nom || nom == nomComplet(un); });
        return f == m_filtres.end() ? nullptr : &*f;
    }

    void suivreFiltres()
    {
        QStringList noms;
        for (const filtre& f : m_filtres)
            noms << nomComplet(f);
        if (!noms.isEmpty())
            m_dialogue.setNameFilters(noms);
        appliquer(m_dialogue.selectedNameFilter());
        QObject::connect(&m_dialogue, &QFileDialog::filterSelected, &m_dialogue,
                         [this](const QString& nom) { appliquer(nom); });
    }

    /// Shows what a filter shows, and adds its extension to names typed without one.
    void appliquer(const QString& nom)
    {
        const filtre* const f = filtreNomme(nom);
        m_vue->montrerSansExtension(f && f->sansExtension);
        const QString extension = f ? extensionDe(*f) : QString();
        m_dialogue.setDefaultSuffix(extension.isEmpty() ? m_extension : extension);
    }

    /// The dialog opens what it shows only: a file that is there, typed by its name, brings a filter that shows it.
    void suivreNomTape()
    {
        if (auto* const champ = m_dialogue.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
            QObject::connect(champ, &QLineEdit::textChanged, &m_dialogue,
                             [this](const QString& nom) { choisirFiltrePour(nom); });
    }

    void choisirFiltrePour(const QString& nom)
    {
        const filtre* const courant = filtreNomme(m_dialogue.selectedNameFilter());
        if (!courant || convient(*courant, nom) || !QFileInfo(m_dialogue.directory().absoluteFilePath(nom)).isFile())
            return;
        const auto autre = std::ranges::find_if(m_filtres, [&](const filtre& f) { return convient(f, nom); });
        if (autre == m_filtres.end())
            return;
        m_dialogue.selectNameFilter(nomComplet(*autre));
        appliquer(nomComplet(*autre));
        if (auto* const boutons = m_dialogue.findChild<QDialogButtonBox*>())
            boutons->button(QDialogButtonBox::Open)->setEnabled(true); // the dialog has judged by the other filter
    }

    /// The name proposed stands in its folder, which is shown; without one, the folder of the drawing is.
    void proposer(const QString& nom)
    {
        std::wstring dossier;
        if (lireVariable(L"DWGPREFIX", dossier) && QFileInfo(QString::fromStdWString(dossier)).isDir())
            m_dialogue.setDirectory(QString::fromStdWString(dossier));
        if (nom.isEmpty())
            return;
        const QFileInfo fichier(nom);
        if (fichier.isDir())
            return m_dialogue.setDirectory(nom);
        if (nom.contains(u'/'))
            m_dialogue.setDirectory(fichier.path());
        // Of files to open the dialog would take those selected together with the one that is typed.
        if (aEcrire())
            m_dialogue.selectFile(fichier.fileName());
    }

    std::vector<filtre> m_filtres;
    QString m_extension; // of names typed without one
    QFileDialog m_dialogue;
    vueFichiers* m_vue; // the dialog's
};

std::optional<std::wstring> demander(const demandeFichier& demande, QFileDialog::AcceptMode mode, int* rang = nullptr)
{
    return dialoguesPossibles() ? boiteFichier(demande, mode).demander(rang) : std::nullopt;
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
