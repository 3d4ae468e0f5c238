#include "exchange/lecteurPoints.h"

#include <array>

#include "exchange/colonnesSeparees.h"
#include "exchange/formatXYZ.h"
#include "exchange/landXml.h"
#include "exchange/motsInstrument.h"
#include "services/codages.h"
#include "services/lettres.h"

std::span<const lecteurPoints* const> lecteursPoints()
{
    static const lecteurXYZ xyz;
    static const lecteurLandXml landXml;
    static const lecteurInstrument instrument;
    static const lecteurColonnes colonnes;
    static const std::array<const lecteurPoints*, 4> lecteurs{&xyz, &landXml, &instrument, &colonnes};
    return lecteurs;
}

const lecteurPoints& lecteurPour(const std::filesystem::path& fichier, std::string_view debut)
{
    const std::wstring extension = enMinuscules(depuisUtf8(fichier.extension().string()));
    for (const lecteurPoints* const lecteur : lecteursPoints())
        if (lecteur->reconnait(extension, debut))
            return *lecteur;
    return *lecteursPoints().back();
}

pointsLus lirePoints(sourceOctets& source, const std::filesystem::path& fichier, const lecteurPoints* lecteur,
                     int codeAbsent)
{
    pointsLus lus;
    lus.codeAbsent = codeAbsent;
    const std::string_view debut = source.debut();
    (lecteur ? *lecteur : lecteurPour(fichier, debut)).lire(source, lus);
    if (source.etat() == etatSource::changee)
        lus.refuser(L"un autre programme a changé le fichier pendant sa lecture ; des points peuvent manquer ou être "
                    L"tronqués.");
    else if (source.enEchec())
        lus.refuser(lus.points.empty() ? L"lecture impossible du fichier."
                                       : L"la lecture du fichier s'est interrompue ; des points manquent.");
    return lus;
}

pointsLus lirePoints(const std::filesystem::path& fichier, const lecteurPoints* lecteur, int codeAbsent)
{
    sourceFichier source(fichier);
    return lirePoints(source, fichier, lecteur, codeAbsent);
}
