// Fuzz target of the traverse files: any bytes can be read as either kind of traverse; what was read can be computed,
// reported and written; and reading that again gives no row that was not there.

#include "calculs/avertissementsPolygonale.h"
#include "calculs/calculPolygonaleFermee.h"
#include "calculs/fichierPolygonale.h"
#include "reports/htmlDocument.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    const std::string_view contenu(reinterpret_cast<const char*>(octets), taille);
    lireEtRelire<donneesPolygonaleOuverte>(contenu);
    const auto donnees = lireEtRelire<donneesPolygonaleFermee>(contenu);

    htmlDocument rapport;
    std::vector<double> x, y, z;
    const auto observations = observationsDe(donnees.lignes);
    const stationPolygonale& d = donnees.depart;
    calculPolygonaleFermee(d.nom, d.x, d.y, d.z, d.gisement, donnees.nivellement, donnees.unite, observations, x, y, z,
                           &rapport);
    avertissementsObservations(donnees.lignes);
    avertissementsPolygonaleFermee(compenserPolygonaleFermee(d, donnees.nivellement, donnees.unite, observations));
    return 0;
}
