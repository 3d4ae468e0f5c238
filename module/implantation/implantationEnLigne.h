#pragma once

#include <optional>
#include <string>
#include <vector>

#include "implantation/repartition.h"
#include "implantation/resultatImplantation.h"
#include "points/exportation.h"

/// A stake-out job without dialogs, on the working drawing: what the program does from its command line.

struct demandeImplantation {
    std::wstring station;               ///< name of its point; may be empty where `stations` are given
    std::vector<std::wstring> stations; ///< more of them, to spread points over
    std::wstring reference;             ///< name of a point; empty: north, or `v0`
    std::optional<double> v0;           ///< radians
    std::wstring points;                ///< names, patterns, ranges of numbers, between commas; see nomsVoulus
    std::optional<int> code;
    std::wstring table; ///< where points are looked for, and all of them without the two above
    bool repartir = false;
    choixRepartition repartition;
    bool verifier = false;
    double hauteur = 1.0;  ///< of instrument and target
    double seuil = 1.0;    ///< what may rise above the sight
    bool dessiner = false; ///< draws the results and keeps the job
};

struct suitesImplantation {
    std::wstring erreur; ///< empty when all was done
    std::vector<std::wstring> avertissements;
    resultatImplantation resultat;
    struct pointNonVu {
        std::wstring nom;
        repartition::refus refus;
    };
    std::vector<pointNonVu> nonVus; ///< of a spreading
    std::string rapport;            ///< page in Windows-1252
};

inline constexpr const wchar_t* stationManquante = L"donnez la station (--station).";

VELA_EXPORT suitesImplantation implanterEnLigne(const demandeImplantation& demande);
