#include "calculs/dialoguePolygonale.h"

#include <cmath>
#include <exception>
#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>
#include <utility>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/CParamMisePlaceResultCalcs.h"
#include "calculs/fermeturePolygonale.h"
#include "calculs/panneauPolygonale.h"
#include "calculs/phrasesDialogues.h"
#include "calculs/placerPolygonale.h"
#include "calculs/reseau/comparaisonPolygonale.h"
#include "points/nomsDoubles.h"
#include "points/projetDansDessin.h"
#include "reports/htmlDocument.h"
#include "reports/resultPolygo.h"
#include "services/dialogueChamps.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/fichierEntier.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

#include "io.h"

namespace {

constexpr wchar_t erreurDeCalcul[] = L"Erreur !";
constexpr wchar_t filtresPolygonale[] = L"Observations|*.obs|Sans extension|*.|Tous|*.*|Text|*.TXT||";
constexpr std::size_t remarquesMontrees = 6;
constexpr std::chrono::milliseconds delaiGarde{1000};  // what a crash may cost
constexpr std::chrono::milliseconds delaiCroquis{100}; // what is typed fast is drawn once

bool existe(const std::wstring& fichier)
{
    return _waccess(fichier.c_str(), 0) == 0;
}

/// The name to save under: the file that the user chose when it is there to the letter, else one in lower case.
std::wstring nomEcrit(const std::wstring& choisi, int filtre)
{
    const std::wstring complet = nomComplet(choisi, filtre);
    return QFileInfo::exists(QString::fromStdWString(complet)) ? complet : nomEnregistrement(choisi, filtre);
}

/// The name saved under may be another than the one that the file dialog asked about: with an extension.
bool remplacementAccepte(const std::wstring& choisi, const std::wstring& nom)
{
    return !existe(nom) || enMinuscules(choisi) == enMinuscules(nom) || confirmerRemplacement(nom);
}

/// What became of the points, for the user.
std::wstring phrasePlacement(int placees, std::size_t stations, int code)
{
    if (!tableCourante())
        return sansTableDePoints;
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
    m_garde.setSingleShot(true);
    m_garde.setInterval(delaiGarde);
    connect(&m_garde, &QTimer::timeout, this, &dialoguePolygonale::garder);
}

void dialoguePolygonale::brancher(panneauPolygonale& panneau, std::initializer_list<champNombre> champs)
{
    m_panneau = &panneau;
    m_champs = champs;
    connect(m_panneau, &panneauPolygonale::charger, this, &dialoguePolygonale::charger);
    connect(m_panneau, &panneauPolygonale::sauvegarder, this, &dialoguePolygonale::sauvegarder);
    connect(m_panneau, &panneauPolygonale::calculer, this, &dialoguePolygonale::calculer);
    connect(m_panneau, &panneauPolygonale::comparer, this, &dialoguePolygonale::comparerMoindresCarres);
    connect(m_panneau, &panneauPolygonale::placer, this, &dialoguePolygonale::placer);
    connect(m_panneau, &panneauPolygonale::fermer, this, &QDialog::accept);
    const auto dessiner = qOverload<>(&QTimer::start);
    connect(m_panneau, &panneauPolygonale::donneesChangees, &m_croquis, dessiner);
    for (const champNombre& c : m_champs) {
        connect(c.champ, &QLineEdit::textChanged, &m_croquis, dessiner);
        surveillerNombre(*c.champ, c.nom);
    }
    connect(m_panneau, &panneauPolygonale::reprendre, this, &dialoguePolygonale::reprendre);
    connect(m_panneau, &panneauPolygonale::donneesChangees, &m_garde, dessiner);
    for (const auto* const champ : findChildren<QLineEdit*>())
        connect(champ, &QLineEdit::textChanged, &m_garde, dessiner);
    QTimer::singleShot(0, this, &dialoguePolygonale::noterEnregistre); // once the fields show what they begin with
    m_aReprendre = brouillonsGardes(metaObject()->className());
    m_panneau->proposerReprise(!m_aReprendre.empty());
}

/// The fields, then the rows: a blank field a tab.
QString dialoguePolygonale::saisi() const
{
    QString texte = brouillonDesChamps(*this);
    for (const ligneObservation& ligne : m_panneau->lignes()) {
        texte += u'\n';
        for (const std::wstring* const cellule : {&ligne.station, &ligne.angle, &ligne.distance, &ligne.altitude})
            texte += u'\t' + QString::fromStdWString(*cellule);
    }
    return texte;
}

/// What is typed from now on is another text than what was.
void dialoguePolygonale::noterEnregistre()
{
    m_enregistre = saisi();
    m_saisie = nouvelleSaisie();
}

void dialoguePolygonale::garder()
{
    std::vector<brouillon> gardes = m_aReprendre;
    if (QString texte = saisi(); !m_enregistre.isNull() && texte != m_enregistre)
        gardes.insert(gardes.begin(), {m_saisie, std::move(texte)});
    garderBrouillons(metaObject()->className(), gardes);
}

/// What was typed and stands in no file makes place for something else, and comes last of what "Reprendre" brings.
void dialoguePolygonale::mettreDeCote()
{
    if (QString texte = saisi(); !m_enregistre.isNull() && texte != m_enregistre)
        m_aReprendre.push_back({std::exchange(m_saisie, nouvelleSaisie()), std::move(texte)});
    m_panneau->proposerReprise(!m_aReprendre.empty());
}

void dialoguePolygonale::reprendre()
{
    mettreDeCote();
    const brouillon repris = m_aReprendre.front();
    m_aReprendre.erase(m_aReprendre.begin());
    m_saisie = repris.saisie;
    std::vector<ligneObservation> lignes;
    for (const QString& ligne : repris.texte.split(u'\n')) {
        const QStringList cellules = ligne.split(u'\t');
        if (cellules.size() == 5 && cellules[0].isEmpty())
            lignes.push_back({cellules[1].toStdWString(), cellules[2].toStdWString(), cellules[3].toStdWString(),
                              cellules[4].toStdWString()});
    }
    m_panneau->afficher(lignes, m_panneau->unite(), m_panneau->nivellement());
    reprendreChamps(*this, repris.texte);
    m_panneau->proposerReprise(!m_aReprendre.empty());
    std::vector<std::wstring> phrases{L"Observations reprises ; elles ne sont pas enregistrées."};
    if (!m_aReprendre.empty())
        phrases.emplace_back(L"« Reprendre » en rend d'autres, et garde celles-ci.");
    m_panneau->montrerBilan(phrases);
}

void dialoguePolygonale::done(int resultat)
{
    garder();
    dialogueModule::done(resultat);
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

void dialoguePolygonale::montrerBilan(const polygonaleCalculee& calculee, const std::vector<std::wstring>& suite) const
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
        if (const auto octets = lireFichier(fichier->c_str())) {
            mettreDeCote();
            m_panneau->montrerBilan(
                premieresPhrases(avertissementsLecture(*fichier, lire(*octets)), remarquesMontrees));
            noterEnregistre();
        }
    } catch (const std::exception&) {
        avertirErreur(ouvertureImpossible);
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
    const std::wstring nom = nomEcrit(*choisi, filtre);
    if (!remplacementAccepte(*choisi, nom))
        return;
    if (!remplacerFichier(nom.c_str(), contenu()))
        return avertirErreur(ouvertureImpossible);
    m_panneau->montrerBilan(premieresPhrases(perduALEcriture(), remarquesMontrees));
    noterEnregistre();
    garder();
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
        return afficherAvertissement(titreCalculs, erreurDeCalcul);
    }
    std::vector<std::wstring> suite;
    if (!rapport.write())
        suite.emplace_back(rapportNonEcrit);
    montrerBilan(p, suite);
    resultPolygo(rapport.fileName().wstring(), remarques(p)).exec();
}

/// In a report of its own: that of the traverse stays as it is.
void dialoguePolygonale::comparerMoindresCarres()
{
    if (!donneesSuffisantes())
        return afficherAvertissement(titreCalculs, donneesInsuffisantes);
    try {
        const polygonaleCalculee p = calculee(nullptr);
        const comparaisonPolygonale c = comparer(p.resultat, observations());
        htmlDocument rapport;
        rapporterComparaison(c, rapport);
        std::vector<std::wstring> suite{phraseComparaison(c)};
        if (!rapport.write())
            suite.emplace_back(rapportNonEcrit);
        montrerBilan(p, suite);
        resultPolygo(rapport.fileName().wstring(), suite).exec();
    } catch (const erreurReseau& faute) {
        afficherAvertissement(titreCalculs, faute.phrase());
    } catch (const std::exception&) {
        afficherAvertissement(titreCalculs, erreurDeCalcul);
    }
}

bool dialoguePolygonale::placerQuandMeme(const polygonaleCalculee& calculee) const
{
    const std::wstring remarque = remarqueFermeture(calculee.resultat);
    if (remarque.empty())
        return true;
    montrerBilan(calculee); // what may be behind it
    return demanderOuiNon(titreCalculs, remarque + L"\n\nPlacer quand même les stations ?");
}

void dialoguePolygonale::placerStations(const polygonaleCalculee& calculee,
                                        const CParamMisePlaceResultCalcs& parametres)
{
    std::vector<tracePolygonale> traces;
    if (parametres.dessinerOriginelle())
        traces.push_back(calculee.originelle);
    if (parametres.dessinerCompensee())
        traces.push_back(calculee.compensee);
    const placementPolygonale placement = parametres.placement();
    const std::vector<stationCorrigee>& stations = calculee.resultat.stations;
    const int avant = tableCourante() ? tableCourante()->nbPoint() : 0;
    const int placees = placerPolygonale(stations, placement, traces);
    const std::wstring phrase = phrasePlacement(placees, stations.size(), placement.code);
    std::vector<std::wstring> suite{phrase};
    for (const std::wstring& nom : avertissementsPlacement(stations))
        suite.push_back(nom);
    if (const listePointsDuDessin* const table = tableCourante())
        if (std::wstring doubles = phraseNomsDoubles(*table, avant); !doubles.empty())
            suite.push_back(std::move(doubles));
    montrerBilan(calculee, suite);
    if (placees < static_cast<int>(stations.size()))
        afficherAvertissement(titreCalculs, phrase);
}

/// Too few rows are no reason for a message here.
void dialoguePolygonale::placer()
{
    if (!donneesSuffisantes())
        return;
    try {
        const polygonaleCalculee p = calculee(nullptr);
        if (!placerQuandMeme(p))
            return;
        CParamMisePlaceResultCalcs parametres;
        if (parametres.exec() == Accepted)
            placerStations(p, parametres);
    } catch (const std::exception&) {
        afficherAvertissement(titreCalculs, erreurDeCalcul);
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
