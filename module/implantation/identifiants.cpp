#include "implantation/identifiants.h"

#include <ctime>

identifiantImplantation identifiantSuivant(identifiantImplantation& compteur, std::int64_t secondes)
{
    if (compteur == aucunIdentifiant)
        compteur = static_cast<identifiantImplantation>(secondes);
    identifiantImplantation pris = compteur++;
    if (pris == aucunIdentifiant)
        pris = compteur++;
    return pris;
}

identifiantImplantation nouvelIdentifiant()
{
    static identifiantImplantation compteur = aucunIdentifiant;
    return identifiantSuivant(compteur, std::time(nullptr));
}
