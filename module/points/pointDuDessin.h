#pragma once

#include <cmath>

#include "points/exportation.h"
#include "services/grandeur.h"

#include "afx.h"
#include "dbid.h"
#include "gepnt3d.h"

class QuarvelSerializer;
struct pointXYZ;

/// One survey point: name, position, code of the codification, and the entity that shows it in the drawing.
/// A plain record, copied by value. X east, Y north, Z up, in drawing units; an altitude, and in a point not placed yet
/// a coordinate, may be `inconnu`. A number that is not finite, which no drawing can hold, becomes that.
/// The name holds at most nine characters of Windows-1252; a longer one is cut without notice.
class VELA_EXPORT pointDuDessin {
public:
    static constexpr int longueurNom = 9;
    static constexpr int tailleNom = 10; // with the terminating zero; also the size of the stored block

    /// X, Y and Z unknown, code 1, no name, not drawn.
    pointDuDessin() = default;
    pointDuDessin(const pointDuDessin&) = default;
    pointDuDessin& operator=(const pointDuDessin&) = default;
    /// Takes everything but the drawn entity, which stays.
    pointDuDessin& operator=(const pointXYZ& point);
    /// Same code, same name but for letter case, and X, Y, Z each less than 0.0001 apart. The entity does not count.
    bool operator==(const pointDuDessin& autre) const;

    /// Horizontal distance.
    double distanceTo(const pointDuDessin& autre) const;

    double getX() const { return X; }
    double getY() const { return Y; }
    double getZ() const { return Z; }
    void setX(double x) { X = coordonnee(x); }
    void setY(double y) { Y = coordonnee(y); }
    void setZ(double z) { Z = coordonnee(z); }
    void getXY(double& x, double& y) const;
    /// Sets all three, in spite of its name.
    void setXY(double x, double y, double z);
    /// X, Y, Z as they are, the unknown marker included.
    AcGePoint3d getAs3dPnt() const { return {X, Y, Z}; }
    bool altitudeConnue() const { return Z != inconnu; }

    int getCode() const { return code; }
    void setCode(int leCode) { code = leCode; }
    /// The entity that shows the point; null when it is not drawn.
    AcDbObjectId& getId() { return id; }
    const AcDbObjectId& getId() const { return id; }
    void setId(AcDbObjectId lId) { id = lId; }

    /// In Windows-1252.
    const char* getNomPoint() const { return nom; }
    /// A null pointer gives the empty name.
    void setNomPoint(const char* leNom);
    void setNomPoint(const wchar_t* leNom);
    void setParams(const wchar_t* leNom, const AcGePoint3d& position, int leCode);

    // These four are defined in codification, since they need codes and symbols.

    /// The altitude with as many decimals as the code of the point asks for; empty when it is unknown. A code that the
    /// codification lacks is added to it.
    void getZAsString(CString& texte) const;

    /// Draws the point's symbol in the working drawing: its name without surrounding blanks and in capitals, as its
    /// code says. Its layers are made when asked for. A point that could not be drawn keeps the entity it had.
    void creer(bool creerCalques, const wchar_t* observation = nullptr);
    /// Brings the symbol in line with the point: name, altitude, place. A change of code does not reach it. A point
    /// without symbol in the drawing gets one; an entity of another kind stays as it is.
    void updateDrawing();
    /// Takes place, name, code and altitude from a symbol, which shows the point from now on.
    /// @return 1; 0 when it is no block reference (the point then has no entity), or one without name (the point then
    /// has its X and Y).
    int updateFromDrawing(const AcDbObjectId& symbole);

    /// One point of the stored form: name as a block of ten bytes, code, X, Y, Z, reference to the entity.
    /// @return 1, or 0 at the first item that fails.
    int saveToXRecord(QuarvelSerializer* s) const;
    int readFromXRecord(QuarvelSerializer* s);

private:
    static double coordonnee(double valeur) { return std::isfinite(valeur) ? valeur : inconnu; }

    double X = inconnu;
    double Y = inconnu;
    double Z = inconnu;
    int code = 1;
    char nom[tailleNom] = {};
    AcDbObjectId id;
};
