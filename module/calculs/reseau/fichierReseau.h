#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "calculs/fichierPolygonale.h"
#include "calculs/lignesFichier.h"
#include "calculs/reseau/reseau.h"

// Files of networks. Each reader gives the network and what looks wrong, with its line; one that cannot be used at all
// says so and gives an empty network.

struct reseauLu {
    reseau r;
    bool lisible = true;                    ///< false: nothing of it can be used, and the first remark says why
    std::vector<remarqueLecture> remarques; ///< French

    /// Keeps a remark, unless there are so many already that nobody would read it.
    void remarquer(std::size_t ligne, std::wstring phrase)
    {
        if (remarques.size() < remarquesGardees)
            remarques.push_back({ligne, std::move(phrase)});
    }
};

/// Of a file without any.
inline constexpr const wchar_t* aucuneObservation = L"aucune observation dans ce fichier.";

/// Our own text form (".mc"), documented in docs/fichier-mc.md.
reseauLu lireMc(std::string_view contenu);
/// The bytes of a ".mc" file that reads back as the network, but for what pertesMc tells; Windows-1252.
std::string contenuMc(const reseau& r);
/// What such a file cannot say of the network, a French phrase each.
std::vector<std::wstring> pertesMc(const reseau& r);

/// The XML form of gama-local (".gkf").
reseauLu lireGkf(std::string_view contenu);

/// A traverse file (".obs") as a network: known stations held, legs as distances and angles, bearings of departure and
/// arrival, height differences when there are any.
reseauLu reseauDePolygonale(std::string_view contenu);

/// A traverse as such a network, and the points of its stations in the order of its computation, departure first.
struct polygonaleEnReseau {
    reseau r;
    std::vector<int> stations;
};
polygonaleEnReseau enReseau(const donneesPolygonaleFermee& donnees);
polygonaleEnReseau enReseau(const donneesPolygonaleOuverte& donnees);

/// By content and extension: XML, traverse, or our own.
reseauLu lireReseau(std::string_view contenu, std::wstring_view nomFichier);
reseauLu chargerReseau(const std::filesystem::path& fichier);

/// What observations without a precision of their own take, unless a file says otherwise: a total station of everyday
/// work.
inline constexpr double dmgrUsuels = 10.0, millimetresUsuels = 3.0, millimetresParKmUsuels = 2.0;
inline constexpr double deniveleeUsuelle = 5.0; ///< mm, for a kilometre
precisionsParDefaut precisionsUsuelles();
