#include "exchange/dialogueImportPoints.h"

#include "exchange/colonnesSeparees.h"
#include "exchange/DlgColonnes.h"
#include "exchange/DlgNomsExistants.h"
#include "exchange/lecteurPoints.h"
#include "exchange/phrasesImport.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"

#include "tchar.h"

namespace {

constexpr const wchar_t* filtresImport =
    L"Fichiers de points|*.xyz; *.txt; *.csv; *.tsv; *.asc; *.pts; *.dat; *.xml; *.landxml; *.gsi|"
    L"Fichier N° X Y Z (.xyz)|*.xyz|Fichier Texte N° X Y Z (.TXT)|*.txt|"
    L"Colonnes séparées (.csv)|*.csv; *.tsv; *.asc; *.pts; *.dat|LandXML (.xml)|*.xml; *.landxml|"
    L"Coordonnées d'appareil (.gsi)|*.gsi|Tous (*.*)|*.*||";

std::wstring nomSansDossier(const std::wstring& fichier)
{
    return fichier.substr(fichier.find_last_of(L"/\\") + 1); // 0 without a folder
}

/// Reads the file. @return nothing when the user does not choose its columns
std::optional<pointsLus> lireFichier(const std::wstring& fichier)
{
    sourceFichier source(_wfopen(fichier.c_str(), L"rb"));
    const std::string debut(source.debut());
    const lecteurPoints& lecteur = lecteurPour(fichier, debut);
    if (!dynamic_cast<const lecteurColonnes*>(&lecteur) || !estTexteEnColonnes(debut))
        return lirePoints(source, fichier, &lecteur);
    const auto format = choisirColonnes(nomSansDossier(fichier), debut);
    if (!format)
        return std::nullopt;
    const lecteurColonnes enColonnes(*format);
    return lirePoints(source, fichier, &enColonnes);
}

} // namespace

std::optional<std::vector<std::wstring>> importerFichierPoints(listePointsDuDessin& table,
                                                               observationsEnAttente& observations)
{
    demandeFichier demande;
    demande.titre = L"Importer des points";
    demande.filtres = filtresImport;
    const auto fichier = demanderFichierALire(demande);
    auto lus = fichier ? lireFichier(*fichier) : std::nullopt;
    if (!lus)
        return std::nullopt;
    if (!lus->lisible)
        afficherAvertissement(L"erreur", erreurOuverture);
    auto choix = nomsExistants::ajouter;
    if (const int existants = nombreNomsExistants(table, lus->points); existants > 0) {
        const auto voulu = demanderNomsExistants(existants);
        if (!voulu)
            return std::nullopt;
        choix = *voulu;
    }
    const bilanAjout bilan = ajouterPoints(table, std::move(lus->points), choix, observations);
    return phrasesImport(nomSansDossier(*fichier), *lus, bilan);
}
