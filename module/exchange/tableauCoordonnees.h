#pragma once

#include <functional>
#include <string>
#include <vector>

/// The table of coordinates that is drawn beside a plan, as lines and texts. Its origin is its upper left corner, X to
/// the right and Y up; lengths are in drawing units.

struct paramsTable {
    double tailleTextes = 2.0;
    int lignesParColonne = 50; ///< points; the table then goes on beside itself
    bool numeros = true, x = true, y = true, z = true, code = false, libelle = false;
    bool encadrer = true, separerEnTete = true, separerColonnes = false, separerLignes = false;
    bool grouper = false; ///< one block instead of lines and texts

    bool operator==(const paramsTable&) const = default;
};

/// One line of text: "1", "0" and so on of each member, for the settings; sizes first.
std::string texteParams(const paramsTable& params);
/// The defaults for a text that is none of these.
paramsTable paramsDeTexte(const std::string& texte);

/// What a point shows, one text for each column there can be.
struct rangeeTable {
    std::wstring numero, x, y, z, code, libelle;
};

struct traitTable {
    double x1, y1, x2, y2;
};

struct texteTable {
    double x, y;  ///< of the end of the baseline that it is aligned to
    bool aDroite; ///< its right end; else its left one
    std::wstring texte;
};

struct tableauCoordonnees {
    std::vector<traitTable> traits;
    std::vector<texteTable> textes;
    double largeur = 0.0, hauteur = 0.0;
};

/// @param largeurTexte of a text of that height
tableauCoordonnees composerTableau(const std::vector<rangeeTable>& rangees, const paramsTable& params,
                                   const std::function<double(const std::wstring&)>& largeurTexte);
