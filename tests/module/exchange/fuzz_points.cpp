// Fuzz target of the point files: any bytes can be read by every reader; lines are counted as they stand; and what the
// module's own format gave is read back from what it writes.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "exchange/colonnesSeparees.h"
#include "exchange/formatXYZ.h"

namespace {

void exiger(bool vrai)
{
    if (!vrai)
        std::abort();
}

pointsLus lire(const lecteurPoints& lecteur, std::string_view contenu)
{
    sourceMemoire source(contenu);
    pointsLus lus;
    lecteur.lire(source, lus);
    return lus;
}

/// Numbers too large for a double are written as words, which are none.
bool reviendra(const pointXYZ& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    const std::string_view contenu(reinterpret_cast<const char*>(octets), taille);
    for (const lecteurPoints* const lecteur : lecteursPoints()) {
        const pointsLus lus = lire(*lecteur, contenu);
        phrasesProblemes(L"f", lus);
        exiger(lus.points.size() <= taille);
    }
    lecteurPour("f", contenu);
    apercuColonnes(contenu, devinerColonnes(contenu).separateur, 5);

    constexpr std::size_t sansLigneCoupee = 300;
    const std::vector<pointXYZ> lus = lire(lecteurXYZ(), contenu).points;
    if (taille < sansLigneCoupee && std::ranges::all_of(lus, reviendra))
        exiger(lire(lecteurXYZ(), contenuXYZ(lus)).points.size() == lus.size());
    return 0;
}
