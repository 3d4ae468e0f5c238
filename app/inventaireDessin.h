#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "dbmain.h"

class Document;

/// What `vela info` tells of a drawing. Texts are UTF-8.
struct inventaireDessin {
    struct table {
        std::string nom;
        int points;
        bool courante;
    };
    struct bloc {
        std::string nom;
        std::size_t entites;    ///< of its definition
        std::size_t insertions; ///< references to it, in the whole drawing
    };

    std::string fichier;
    int version = 0;        ///< the figures of $ACADVER in memory
    int versionFichier = 0; ///< on disk: less when the drawing was upgraded at opening
    bool binaire = false;
    std::string encodage;
    std::optional<AcDbExtents> etendueCalculee;       ///< of the entities of model space; none when it shows nothing
    std::optional<AcDbExtents> etendueEntete;         ///< as the header has it; none when it is not set
    std::size_t entitesObjet = 0;                     ///< in model space
    std::size_t entitesPapier = 0;                    ///< in the layouts
    std::map<std::string, std::size_t> parClasse;     ///< entities of both spaces, by their name in DXF
    std::map<std::string, std::size_t> parCalque;     ///< the same, by layer; layers without entities are there too
    std::vector<bloc> blocs;                          ///< but for the spaces, in the order of the table
    std::map<std::string, std::size_t> autresClasses; ///< objects and entities of classes that are kept as they are
    std::map<std::string, std::size_t> nonDessinees;  ///< entities that no picture shows, by their name in DXF
    std::vector<std::string> presentations;           ///< names of the layouts on paper
    std::vector<table> tables;                        ///< point tables of the project
    std::vector<std::string> problemes;               ///< found at opening, then by opening every object once
    bool sain = true;                                 ///< none of them tells of a loss or a repair
};

/// Of the current document. Opens each object of the drawing once, for reading.
inventaireDessin inventorier(const Document& document, const std::string& fichier);

// The two ways to show it.
void afficherTexte(const inventaireDessin& inventaire);
void afficherJson(const inventaireDessin& inventaire);
