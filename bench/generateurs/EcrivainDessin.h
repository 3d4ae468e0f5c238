#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "generateurs/SortieDxf.h"

class EcrivainDessin;

struct CalqueDxf {
    std::string nom;
    int couleur = 7;
    std::string typeDeLigne = "Continuous";
};

struct TypeDeLigneDxf {
    std::string nom;
    std::string description;
    std::vector<double> tirets; ///< drawn lengths positive, gaps negative, drawing units
};

/// A block definition; `contenu` writes its entities, `attributs` says whether they include attribute definitions.
struct BlocDxf {
    std::string nom;
    bool attributs = false;
    std::function<void(EcrivainDessin&)> contenu;
};

/// A class that readers do not know, named so that they keep its objects.
struct ClasseDxf {
    std::string nom;
    std::string classeCpp;
    std::string application;
    bool entite = true;
};

/// What a drawing has besides its entities and objects. Layer "0" comes first by itself.
struct CadreDessin {
    std::string version = "AC1024";
    std::string titre;
    double xMin = 0.0, yMin = 0.0, xMax = 100.0, yMax = 100.0, zMax = 0.0;
    std::vector<CalqueDxf> calques;
    std::vector<TypeDeLigneDxf> typesDeLigne;
    std::vector<std::string> styles; ///< text styles besides "Standard"
    std::vector<BlocDxf> blocs;
    std::vector<std::string> applications;
    std::vector<ClasseDxf> classes;
    bool dictionnaireCalque0 = false;          ///< layer "0" has an extension dictionary, which the caller then writes
    std::uint64_t poigneesReservees = 0x10000; ///< at least as many as the drawing will use
};

/// Writes the frame of a drawing around the entities and objects that its caller writes:
/// debut(), entities, objets(), objects, fin(). Handles are given out in the order of writing.
class EcrivainDessin {
public:
    using Entrees = std::vector<std::pair<std::string, Poignee>>;

    EcrivainDessin(SortieDxf& sortie, CadreDessin cadre);

    SortieDxf& sortie() { return m_sortie; }
    bool depuis2010() const { return m_cadre.version >= "AC1024"; } ///< attributes bear their version from there on

    Poignee nouvelle() { return static_cast<Poignee>(m_prochaine++); }
    Poignee racine() const;
    Poignee espaceObjet() const;
    Poignee calque0() const;
    Poignee dictionnaireCalque0() const;
    Poignee enregistrementBloc(std::size_t rang) const { return m_blocs.at(rang); }

    void debut();                           ///< header to tables and blocks; entities follow
    void objets(const Entrees& dansRacine); ///< ends the entities, writes the usual dictionaries; objects follow
    void fin();

    /// Type, handle, owner (model space, or the block being defined), layer and subclass of an entity.
    Poignee entite(std::string_view type, std::string_view calque, std::string_view sousClasse);
    Poignee sousEntite(std::string_view type, Poignee proprietaire, std::string_view calque,
                       std::initializer_list<std::string_view> sousClasses);
    void dictionnaire(Poignee poignee, Poignee proprietaire, const Entrees& entrees, bool possede);

private:
    void entete();
    void classes();
    void tables();
    void tableTypesDeLigne();
    void tableCalques();
    void tableBlocs();
    void blocs();
    void bloc(const std::string& nom, Poignee enregistrement, const BlocDxf* definition);
    void presentation(std::string_view nom, Poignee poignee, int ordre, Poignee enregistrement);
    void debutTable(std::string_view nom, Poignee poignee, std::size_t nombre);
    void ligneTable(std::string_view type, std::string_view sousClasse, Poignee table, Poignee poignee);

    SortieDxf& m_sortie;
    CadreDessin m_cadre;
    std::uint64_t m_prochaine;
    Poignee m_proprietaire;
    std::vector<Poignee> m_blocs;
};
