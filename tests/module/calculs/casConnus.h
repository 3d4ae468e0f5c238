#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "calculs/cheminement.h"

/// A traverse of examples/ whose results are known.
struct casConnu {
    struct attendu {
        std::string grandeur;
        double tolerance = 0.0;
        std::vector<double> valeurs;
    };
    std::string nom;
    std::string fichier; ///< the traverse file, its whole path
    std::vector<attendu> attendus;
};

/// The cases of a file of data/.
std::vector<casConnu> lireCasConnus(const char* nom);

/// Values of a computation by the names that the files of data/ give them.
using grandeurs = std::map<std::string, std::vector<double>>;

/// Those that closed and open traverses share.
grandeurs grandeursCommunes(const cheminement& c);

template <class Element>
std::vector<double> colonne(const std::vector<Element>& elements, double Element::*membre)
{
    std::vector<double> valeurs;
    for (const Element& e : elements)
        valeurs.push_back(e.*membre);
    return valeurs;
}

/// Expects each known value within its tolerance.
void verifier(const casConnu& cas, const grandeurs& calculees);

/// Expects the stations of a computation where those of the other one are, once moved.
void comparerStations(const cheminement& c, const cheminement& reference,
                      const std::function<stationCorrigee(stationCorrigee)>& deplacement);

/// Expects, for each rule of levelling, the report that a file of rapports/ holds byte for byte: "NAME-0.html" and so
/// on.
void attendreRapports(const std::string& nom, const std::function<std::string(int nivellement)>& rapport);
