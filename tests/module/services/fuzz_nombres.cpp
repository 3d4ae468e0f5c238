// Any text as a number, for each reader: what the strict one takes, the plain one takes whole and as the same value; a
// value written with all its decimals reads back the same.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "services/codages.h"
#include "services/entierDeTexte.h"
#include "services/formatNombres.h"
#include "services/lireNombre.h"
#include "services/reelDeTexte.h"

namespace {

void exiger(bool vrai)
{
    if (!vrai)
        std::abort();
}

void ecrireEtRelire(double valeur)
{
    const std::wstring texte = formaterFixe(valeur, 30);
    bool entier = false;
    const double relue = reelDeTexte(texte, &entier);
    exiger(entier && std::abs(relue - valeur) <= std::max(1e-30, std::abs(valeur) * 1e-15));
    for (const int mode : {0, 1, 2, 3})
        formaterAbscisse(valeur, 3, mode);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    const std::string etroit(reinterpret_cast<const char*>(octets), taille);
    const std::wstring large = depuisAnsi(etroit.c_str());
    double stricte = 0.0, deLarge = 0.0;
    const int accepte = lireNombre(etroit.c_str(), stricte);
    exiger(accepte == lireNombre(large.c_str(), deLarge) && stricte == deLarge);

    bool entier = false;
    const double simple = reelDeTexte(large.c_str(), &entier);
    exiger(!std::isnan(simple));
    exiger(!accepte || (entier && simple == stricte));
    exiger(entier == remarqueNombre(L"la distance", large.c_str()).empty());
    if (std::isfinite(simple))
        ecrireEtRelire(simple);
    exiger(entierDeTexte(std::to_wstring(entierDeTexte(large))) == entierDeTexte(large));
    return 0;
}
