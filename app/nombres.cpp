#include "nombres.h"

#include <cmath>
#include <iostream>

#include "services/grandeur.h"
#include "services/nombreFixe.h"

std::string nombreTexte(double valeur, int decimales)
{
    if (valeur == inconnu)
        return "inconnu";
    if (!std::isfinite(valeur))
        return "non défini";
    const std::string texte = nombreFixe(valeur, decimales);
    // Less than half of the last decimal below zero: no sign for what reads as zero.
    return texte.find_first_not_of("-0.") == std::string::npos && texte.starts_with('-') ? texte.substr(1) : texte;
}

objetJson nombreJson(double valeur)
{
    return valeur == inconnu || !std::isfinite(valeur) ? objetJson(nullptr) : objetJson(valeur);
}

objetJson fichierJson(const std::string& nom)
{
    return nom.empty() ? objetJson(nullptr) : objetJson(nom);
}

void ecrireJson(const objetJson& json)
{
    std::cout << json.dump(2, ' ', false, objetJson::error_handler_t::replace) << '\n';
}
