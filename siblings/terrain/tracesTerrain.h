#pragma once

#include <string>

#include "sol/courbesNiveau.h"
#include "sol/maillageTerrain.h"
#include "sol/parcoursTerrain.h"

#include "dbid.h"

class AcDbEntity;

/// What is drawn of a terrain model in the working drawing. Each entity bears the model's handle as extended data, so
/// that it is found again, whatever was done to its layer.

/// Whether an entity was drawn of a model, whichever.
bool estTraceDeModele(const AcDbEntity& entite);

/// Triangles of the model as 3D faces on the layer "MNT_" and the model's name. @return how many.
int dessinerTriangles(AcDbObjectId modele, const std::wstring& nom, const maillageTerrain& sol);
/// @return how many went.
int effacerTriangles(AcDbObjectId modele);
bool trianglesDessines(AcDbObjectId modele);

struct reglagesCourbes {
    demandeCourbes demande;
    int maitresse = 5;         ///< every so many lines is an index line; 0: none
    bool coter = true;         ///< altitudes along index lines; along all when there are none
    double hauteurTexte = 1.5; ///< drawing units
    double espacement = 150.0; ///< between two texts of a line
    bool remplacer = true;     ///< those drawn before go
};

struct bilanCourbes {
    int courbes = 0, maitresses = 0, cotes = 0;
};

/// Contours as polylines at their elevation, on the layers "MNT_COURBES", "MNT_COURBES_MAITRESSES", their texts on
/// "MNT_COURBES_COTES".
bilanCourbes dessinerCourbes(AcDbObjectId modele, const maillageTerrain& sol, const reglagesCourbes& reglages);

/// Draws a profile as a figure: the ground, its rows of distances and altitudes below, on the layer "MNT_PROFIL".
/// @param bas lower left corner of the figure, in drawing units
/// @param facteur heights are drawn that many times larger than lengths
void dessinerProfil(AcDbObjectId modele, const parcoursTerrain::polylignes& profil, const lieuSol& de,
                    const lieuSol& bas, double facteur, double hauteurTexte);
