#pragma once

#include <memory>
#include <string>

#include "dbents.h"
#include "dbsymtb.h"

/// Where a text stands about its place: it begins or ends there on its baseline, or ends there at its bottom (droite),
/// or has its middle there.
enum class calageTexte { gauche, droite, milieu };

/// Adds entities to a space or a block, which stays open for write for as long as this lives: for commands that draw
/// many. They get the current layer, unless they have one already.
class ajoutEntites {
public:
    /// To the current space of the working drawing.
    ajoutEntites();
    explicit ajoutEntites(const AcDbObjectId& bloc);

    /// @return its id, or null when the drawing refused it (the entity is then destroyed).
    AcDbObjectId ajouter(std::unique_ptr<AcDbEntity> entite);
    /// A line of text in the current text style. @param rotation radians
    AcDbObjectId ecrire(const AcGePoint3d& place, const std::wstring& texte, double hauteur, double rotation = 0.0,
                        calageTexte calage = calageTexte::gauche);

private:
    AcDbObjectPointer<AcDbBlockTableRecord> m_bloc;
};

/// A line of text in the current text style, in no space yet.
std::unique_ptr<AcDbText> texteCale(const AcGePoint3d& place, const std::wstring& texte, double hauteur,
                                    double rotation, calageTexte calage);
