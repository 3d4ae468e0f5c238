// Any text as a number, for each reader: what the strict one takes, the plain one takes whole and as the same value; a
// value written with all its decimals reads back the same.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "services/formatNombres.h"
#include "services/lireNombre.h"
#include "services/nombreFixe.h"
#include "services/nombresTexte.h"
#include "services/reelDeTexte.h"

namespace {

void exiger(bool vrai)
{
    if (!vrai)
        std::abort();
}

void ecrireEtRelire(double valeur)
{
    CString texte;
    formaterFixe(valeur, 30, texte);
    bool entier = false;
    const double relue = reelDeTexte(texte.GetString(), &entier);
    exiger(entier && std::abs(relue - valeur) <= std::max(1e-30, std::abs(valeur) * 1e-15));
    exiger(CStringA(texte).GetString() == nombreFixe(valeur, 30));
    for (const int mode : {0, 1, 2, 3})
        formaterAbscisse(valeur, 3, mode, texte);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    const std::string etroit(reinterpret_cast<const char*>(octets), taille);
    const CString large(etroit.c_str());
    double stricte = 0.0, deLarge = 0.0;
    const int accepte = lireNombre(etroit.c_str(), stricte);
    exiger(accepte == lireNombre(large.GetString(), deLarge) && stricte == deLarge);

    bool entier = false;
    const double simple = reelDeTexte(large.GetString(), &entier);
    exiger(!std::isnan(simple));
    exiger(!accepte || (entier && simple == stricte));
    exiger(entier == remarqueNombre(L"la distance", large.GetString()).empty());
    if (std::isfinite(simple))
        ecrireEtRelire(simple);
    exiger(entierDeTexte(texteEntier(entierDeTexte(large)).GetString()) == entierDeTexte(large));
    return 0;
}
