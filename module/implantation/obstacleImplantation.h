#pragma once

#include <memory>
#include <string>
#include <vector>

#include "implantation/obstaclesPlan.h"
#include "services/Uncopyable.h"

#include "dbid.h"
#include "gept3dar.h"

class AcDbEntity;

/// Something that stands on the ground and hides what lies behind it: an entity of the drawing with a height above the
/// ground, in its extended data "VELA_HAUTEURSOBJETS".
/// The order of the virtual operations is part of the interface between modules.
class obstacleImplantation : Uncopyable {
public:
    /// Takes the data off the entity, which is no obstacle any more.
    virtual bool detach();
    /// Writes the data on the entity: 1001, 1071 mark, 1040 height, and for a point 1041 size, 1071 colour.
    /// @return false when the entity cannot be changed
    virtual bool save() = 0;
    /// Reads them from an entity. @return false, nothing changed, for another number of items or another mark
    virtual bool load(const AcDbObjectId& entite) = 0;
    /// Shows or hides where it stands, over the drawing.
    virtual void highlight(bool montrer) = 0;
    /// Appends where it crosses a sight, seen from above. @return whether it does
    virtual bool intersect(const AcGePoint3d& de, const AcGePoint3d& vers, AcGePoint3dArray& points) const = 0;
    /// Adds it to the index of obstacles, under the next number.
    virtual void indexer(obstaclesPlan& plan) const = 0;
    virtual ~obstacleImplantation();

    /// What it is, for sentences: "l'obstacle « BLOC », haut de 2.00", "l'obstacle du calque « X »...".
    std::wstring nom() const;

    AcDbObjectId id;
    double hauteur = 0.0; ///< above the ground
    int couleur = 1;

protected:
    obstacleImplantation() = default;
    void montrer(std::unique_ptr<AcDbEntity> marque);
    void cacher();

private:
    std::unique_ptr<AcDbEntity> m_marque; // shown over the drawing
};

/// Any curve: a wall, a hedge, a fence.
class obstacleLineaireImplantation final : public obstacleImplantation {
public:
    ~obstacleLineaireImplantation() override;
    bool save() override;
    bool load(const AcDbObjectId& entite) override;
    void highlight(bool montre) override;
    bool intersect(const AcGePoint3d& de, const AcGePoint3d& vers, AcGePoint3dArray& points) const override;
    void indexer(obstaclesPlan& plan) const override;

private:
    bool m_surbrillance = false; // the entity's own
};

/// Something round: a tree, a post. Shown by a block, a circle or a point of the drawing.
class obstaclePonctuelImplantation final : public obstacleImplantation {
public:
    ~obstaclePonctuelImplantation() override;
    bool save() override;
    bool load(const AcDbObjectId& entite) override;
    void highlight(bool montre) override;
    bool intersect(const AcGePoint3d& de, const AcGePoint3d& vers, AcGePoint3dArray& points) const override;
    void indexer(obstaclesPlan& plan) const override;

    /// Centre, and for a circle its radius as size, from an entity. @return false for an entity that has no centre
    bool prendreCentre(const AcDbObjectId& entite);

    double X = 0.0, Y = 0.0;
    double taille = 0.0; ///< radius
};

/// The obstacles of the working drawing: entities with data of one kind or the other, oldest first.
std::vector<std::unique_ptr<obstacleImplantation>> obstaclesDuDessin();
