#include "implantation/reglagesImplantation.h"

unsigned masqueDe(const optionsImplantation& options)
{
    unsigned masque = 0;
    if (options.implantations)
        masque |= masqueLigne;
    if (options.numeros)
        masque |= masqueNumero;
    if (options.textes)
        masque |= masqueDistance | masqueAngle;
    if (options.coordonnees)
        masque |= masqueX | masqueY | masqueZ;
    return masque;
}

void reglagesImplantation::fixerTailleTextes(double taille)
{
    tailleTextes = taille;
    tailleStations = 2.0 * taille;
}

reglagesImplantation& reglagesDuProcessus()
{
    static reglagesImplantation reglages;
    return reglages;
}

double hauteurAdmise(double hauteur)
{
    if (!(hauteur >= 0.0)) // nor what is no number
        return 0.0;
    return hauteur > 1e30 ? 1.2 : hauteur;
}
