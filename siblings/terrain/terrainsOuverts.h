#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "points/terrainVoisin.h"
#include "sol/maillageTerrain.h"
#include "sol/parcoursTerrain.h"

#include "acdocman.h"
#include "dbmain.h"
#include "rangementModeles.h"

class terrainsDuDessin;

/// One model in memory: its triangles, made at the first question, and whether its sources are still what they were.
/// It outlives its model and its drawing, and then has no ground: others may still hold it.
class terrain {
public:
    terrain(terrainsDuDessin& sonDessin, AcDbObjectId sonId) : dessin(&sonDessin), idModele(sonId) {}

    AcDbObjectId id() const { return idModele; }
    /// Null when the model is gone, or its record damaged.
    const maillageTerrain* maillage();
    parcoursTerrain* parcours();
    /// What the drawing keeps of it; nothing when it is gone.
    std::optional<modeleRange> contenu() const;
    /// What its making had to tell.
    const std::vector<incidentSol>& incidents() const { return lesIncidents; }
    /// Whether the points and lines it was made from changed since. Gathers them again when they may have.
    bool perime();

private:
    friend class terrainsDuDessin;
    friend class terrainsOuverts;
    bool existe() const { return dessin && !idModele.isErased(); }
    void oublier();
    void construire();

    terrainsDuDessin* dessin;
    AcDbObjectId idModele;
    std::unique_ptr<maillageTerrain> sol;
    std::unique_ptr<parcoursTerrain> chemin;
    std::vector<incidentSol> lesIncidents;
    bool construit = false;
    std::unordered_set<std::int64_t> sources;     // ids of what it was made from, once its freshness was asked for
    std::optional<std::uint64_t> empreinteTables; // of the tables when its freshness was last told
    bool dernierPerime = false;
    bool averti = false;
};

/// The models of one drawing: knows the drawing's records, hears of changes.
class terrainsDuDessin : public AcDbDatabaseReactor {
public:
    explicit terrainsDuDessin(AcDbDatabase& leDessin);
    ~terrainsDuDessin() override;
    terrainsDuDessin(const terrainsDuDessin&) = delete;
    terrainsDuDessin& operator=(const terrainsDuDessin&) = delete;

    AcDbDatabase& base() const { return dessin; }
    /// The models as the drawing has them now, the current one by its position.
    const donneesTerrain& donnees();
    /// The current model; null when there is none.
    terrain* courant();
    terrain* de(AcDbObjectId id);
    /// Says once on the command line that a model is out of date.
    static void avertir(terrain& modele, const std::wstring& nom);

    void objectModified(const AcDbDatabase*, const AcDbObject* objet) override;
    void objectErased(const AcDbDatabase*, const AcDbObject* objet, Adesk::Boolean) override;

private:
    friend class terrainsOuverts;
    void noter(const AcDbObject& objet);

    AcDbDatabase& dessin;
    std::map<AcDbObjectId, std::unique_ptr<terrain>> terrains;
    donneesTerrain liste;
};

/// The drawings whose models were asked for; one of it while the module is loaded.
class terrainsOuverts : public AcApDocManagerReactor {
public:
    terrainsOuverts();
    ~terrainsOuverts() override;
    terrainsOuverts(const terrainsOuverts&) = delete;
    terrainsOuverts& operator=(const terrainsOuverts&) = delete;

    /// Of the working drawing; null without one.
    terrainsDuDessin* courants();
    void documentToBeDestroyed(AcApDocument* document) override;

private:
    std::map<AcDbDatabase*, std::unique_ptr<terrainsDuDessin>> dessins;
    std::vector<std::unique_ptr<terrain>> disparus; // of closed drawings: others may hold them
};

/// Null before the module's first message and after its last.
terrainsOuverts* terrainsEnSession();
void ouvrirTerrains();
void fermerTerrains();
