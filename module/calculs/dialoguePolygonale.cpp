#include "calculs/dialoguePolygonale.h"

#include <cmath>
#include <exception>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/CParamMisePlaceResultCalcs.h"
#include "calculs/panneauPolygonale.h"
#include "calculs/placerPolygonale.h"
#include "points/projetDansDessin.h"
#include "reports/htmlDocument.h"
#include "reports/resultPolygo.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/fichierEntier.h"
#include "services/reelDeTexte.h"
#include "services/texteAnsi.h"

#include "io.h"

namespace {

constexpr wchar_t titreCalculs[] = L"Calculs Topo";
constexpr wchar_t filtresPolygonale[] = L"Observations|*.obs|Sans extension|*.|Tous|*.*|Text|*.TXT||";
constexpr std::size_t remarquesMontrees = 6;
constexpr std::chrono::milliseconds delaiCroquis{100}; // what is typed fast is drawn once

bool existe(const std::wstring& fichier)
{
    return _waccess(fichier.c_str(), 0) == 0;
}

/// Whether the file dialog has asked about replacing the file that `nom` leads to: it knew it as `choisi`, perhaps in
/// other letters.
bool dejaDemande(const std::wstring& choisi, const std::wstring& nom)
{
    const QFileInfo connu(QString::fromStdWString(choisi)), ecrit(QString::fromStdWString(nom));
    return connu.exists() && enMinuscules(choisi) == nom &&
           (connu.fileName() == ecrit.fileName() || !connu.dir().exists(ecrit.fileName()));
}

/// The name saved under may be another than the one that the file dialog asked about: in lower case, with an extension.
bool remplacementAccepte(const std::wstring& choisi, const std::wstring& nom)
{
    return !existe(nom) || dejaDemande(choisi, nom) ||
           demanderOuiNon(L"Enregistrer sous", L"« " + nom + L" » existe déjà. Le remplacer ?");
}

/// What became of the points, for the user.
std::wstring phrasePlacement(int placees, std::size_t stations, int code)
{
    if (!tableCourante())
        return L"Le dessin n'a pas de table de points : rien n'est placé.";
    std::wstring phrase = std::to_wstring(placees) + L" station(s) placée(s) dans la table « " +
                          tableCourante()->getNomTable().GetString() + L" », code " + std::to_wstring(code) + L".";
    if (const std::size_t manquantes = stations - static_cast<std::size_t>(placees); manquantes > 0)
        phrase += L" " + std::to_wstring(manquantes) + L" station(s) sans coordonnées finies : non placée(s).";
    return phrase;
}

} // namespace

dialoguePolygonale::dialoguePolygonale()
{
    m_croquis.setSingleShot(true);
    m_croquis.setInterval(delaiCroquis);
    connect(&m_croquis, &QTimer::timeout, this, &dialoguePolygonale::rafraichirCroquis);
}

void dialoguePolygonale::brancher(panneauPolygonale& panneau, std::initializer_list<champNombre> champs)
{
    m_panneau = &panneau;
    m_champs = champs;
    connect(m_panneau, &panneauPolygonale::charger, this, &dialoguePolygonale::charger);
    connect(m_panneau, &panneauPolygonale::sauvegarder, this, &dialoguePolygonale::sauvegarder);
    connect(m_panneau, &panneauPolygonale::calculer, this, &dialoguePolygonale::calculer);
    connect(m_panneau, &panneauPolygonale::placer, this, &dialoguePolygonale::placer);
    connect(m_panneau, &panneauPolygonale::fermer, this, &QDialog::accept);
    const auto dessiner = qOverload<>(&QTimer::start);
    connect(m_panneau, &panneauPolygonale::donneesChangees, &m_croquis, dessiner);
    for (const champNombre& c : m_champs)
        connect(c.champ, &QLineEdit::textChanged, &m_croquis, dessiner);
}

bool dialoguePolygonale::donneesSuffisantes() const
{
    return m_panneau->lignes().size() >= 2;
}

void dialoguePolygonale::rafraichirCroquis()
{
    m_panneau->dessiner(donneesSuffisantes() ? calculee(nullptr) : polygonaleCalculee{});
}

/// On the fields, then on the traverse: the first ones.
std::vector<std::wstring> dialoguePolygonale::remarques(const polygonaleCalculee& calculee) const
{
    std::vector<std::wstring> phrases;
    for (const champNombre& c : m_champs)
        remarquerChamp(c.nom, *c.champ, phrases);
    phrases.insert(phrases.end(), calculee.avertissements.begin(), calculee.avertissements.end());
    return premieresPhrases(std::move(phrases), remarquesMontrees);
}

void dialoguePolygonale::montrerBilan(const polygonaleCalculee& calculee, const std::vector<std::wstring>& suite)
{
    std::vector<std::wstring> phrases = remarques(calculee);
    phrases.insert(phrases.begin(), resumePolygonale(calculee.resultat));
    phrases.insert(phrases.end(), suite.begin(), suite.end());
    m_panneau->montrerBilan(phrases);
}

/// A file that cannot be opened is no reason for a message: the dialog stays as it was.
void dialoguePolygonale::charger()
{
    demandeFichier demande;
    demande.filtres = filtresPolygonale;
    const auto fichier = demanderFichierALire(demande);
    if (!fichier)
        return;
    try {
        if (const auto octets = lireFichier(fichier->c_str()))
            m_panneau->montrerBilan(
                premieresPhrases(avertissementsLecture(*fichier, lire(*octets)), remarquesMontrees));
    } catch (const std::exception&) {
        afficherAvertissement(L"Erreur", L"Ouverture impossible du fichier");
    }
}

void dialoguePolygonale::sauvegarder()
{
    demandeFichier demande;
    demande.filtres = filtresPolygonale;
    int filtre = filtreObservations;
    const auto choisi = demanderFichierAEcrire(demande, &filtre);
    if (!choisi)
        return;
    const std::wstring nom = nomEnregistrement(*choisi, filtre);
    if (!remplacementAccepte(*choisi, nom))
        return;
    if (remplacerFichier(nom.c_str(), contenu()))
        m_panneau->montrerBilan(premieresPhrases(avertissementsEcriture(m_panneau->lignes()), remarquesMontrees));
    else
        afficherAvertissement(L"Erreur", L"Ouverture impossible du fichier");
}

void dialoguePolygonale::calculer()
{
    if (!donneesSuffisantes())
        return afficherAvertissement(titreCalculs, donneesInsuffisantes);
    htmlDocument rapport;
    polygonaleCalculee p;
    try {
        p = calculee(&rapport);
    } catch (const std::exception&) {
        return afficherAvertissement(titreCalculs, L"Erreur !");
    }
    std::vector<std::wstring> suite;
    if (!rapport.write())
        suite.push_back(L"Le rapport n'a pas pu être écrit.");
    montrerBilan(p, suite);
    resultPolygo(rapport.fileName().wstring(), remarques(p)).exec();
}

/// Too few rows are no reason for a message here.
void dialoguePolygonale::placer()
{
    if (!donneesSuffisantes())
        return;
    CParamMisePlaceResultCalcs parametres;
    if (parametres.exec() != Accepted)
        return;
    try {
        const polygonaleCalculee p = calculee(nullptr);
        std::vector<tracePolygonale> traces;
        if (parametres.dessinerOriginelle())
            traces.push_back(p.originelle);
        if (parametres.dessinerCompensee())
            traces.push_back(p.compensee);
        const placementPolygonale placement = parametres.placement();
        const int placees = placerPolygonale(p.resultat.stations, placement, traces);
        const std::size_t stations = p.resultat.stations.size();
        const std::wstring phrase = phrasePlacement(placees, stations, placement.code);
        montrerBilan(p, {phrase});
        if (placees < static_cast<int>(stations))
            afficherAvertissement(titreCalculs, phrase);
    } catch (const std::exception&) {
        afficherAvertissement(titreCalculs, L"Erreur !");
    }
}

double reelDuChamp(const QLineEdit& champ)
{
    return reelDeTexte(champ.text().toStdWString());
}

void remarquerChamp(const wchar_t* nomme, const QLineEdit& champ, std::vector<std::wstring>& remarques)
{
    if (champ.text().isEmpty())
        return;
    if (std::wstring remarque = remarqueNombre(nomme, champ.text().toStdWString()); !remarque.empty())
        remarques.push_back(std::move(remarque));
}

void montrerReel(QLineEdit& champ, double valeur)
{
    // Plain digits for what coordinates are made of, an exponent beyond.
    const char forme = std::abs(valeur) < 1e15 ? 'f' : 'g';
    champ.setText(QString::number(valeur, forme, QLocale::FloatingPointShortest));
}
