// Fuzz target of the files of networks: any bytes can be read in each form; what was read can be adjusted, reported and
// written; what was written can be read.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "calculs/formules/formule.h"
#include "calculs/reseau/compensation.h"
#include "calculs/reseau/fichierReseau.h"
#include "calculs/reseau/rapportReseau.h"

namespace {

void calculer(const reseauLu& lu)
{
    if (!lu.lisible || lu.r.observations.size() > 200)
        return;
    if (lireMc(contenuMc(lu.r)).r.observations.size() > lu.r.observations.size())
        std::abort();
    try {
        htmlDocument rapport;
        rapporterReseau(lu.r, compenser(lu.r), rapport);
    } catch (const erreurReseau&) {
        // refused with a sentence
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    const std::string_view contenu(reinterpret_cast<const char*>(octets), taille);
    calculer(lireMc(contenu));
    calculer(lireGkf(contenu));
    calculer(reseauDePolygonale(contenu));
    messageVerification(contenu);
    return 0;
}
