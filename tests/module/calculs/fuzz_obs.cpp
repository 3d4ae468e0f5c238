// Fuzz target of the traverse files: any bytes can be read as either kind of traverse; what was read can be computed,
// reported and written; and reading that again gives no row that was not there.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "calculs/avertissementsPolygonale.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/rapportPolygonaleFermee.h"
#include "calculs/rapportPolygonaleOuverte.h"
#include "reports/htmlDocument.h"

namespace {

template <class Donnees>
Donnees lireEtRelire(std::string_view contenu)
{
    Donnees lue, relue;
    lirePolygonale(contenu, lue);
    lirePolygonale(contenuPolygonale(lue), relue);
    // Long cells may come back cut in pieces of lines; nothing else adds a row.
    if (contenu.size() < 300 && relue.lignes.size() > lue.lignes.size())
        std::abort();
    return lue;
}

template <class Donnees>
void calculer(const Donnees& donnees)
{
    const auto resultat = compenserPolygonale(donnees);
    htmlDocument rapport;
    rapporterPolygonale(resultat, rapport);
    avertissementsObservations(donnees.lignes);
    avertissementsPolygonale(resultat);
    tracePolygonaleOriginelle(resultat);
    tracePolygonaleCompensee(resultat);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    const std::string_view contenu(reinterpret_cast<const char*>(octets), taille);
    calculer(lireEtRelire<donneesPolygonaleOuverte>(contenu));
    calculer(lireEtRelire<donneesPolygonaleFermee>(contenu));
    return 0;
}
