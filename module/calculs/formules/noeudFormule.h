#pragma once

#include <cstdint>
#include <string>

enum class genreNoeud : std::uint8_t {
    aucun = 0,
    addition = 1,
    soustraction = 2,
    multiplication = 3,
    division = 4,
    puissance = 5,
    variableOpposee = 6,
    variable = 7,
    constante = 8
};

/// One node of a formula's tree. Operands are positions in the formula that owns all its nodes: a chain of a million
/// operands is then freed, copied and walked without recursion.
struct noeudFormule {
    static constexpr std::int32_t absent = -1;

    genreNoeud genre = genreNoeud::aucun;
    std::string nom;              ///< variables
    double valeur = 0.0;          ///< constants
    std::int32_t gauche = absent; ///< operands of the binary kinds; either may be missing
    std::int32_t droite = absent;
    mutable std::int32_t indiceVariable = -1; ///< where the name was found in the table of variables; -1: not looked up

    bool binaire() const { return genre >= genreNoeud::addition && genre <= genreNoeud::puissance; }
};
