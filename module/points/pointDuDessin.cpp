#include "points/pointDuDessin.h"

#include <cmath>
#include <cstring>

#include "points/pointXYZ.h"
#include "points/QuarvelSerializer.h"
#include "services/codages.h"
#include "services/lettres.h"

namespace {

/// Per axis, in drawing units: a tenth of a millimetre on a survey in metres.
constexpr double toleranceEgalite = 0.0001;

bool proches(double a, double b)
{
    return std::abs(a - b) < toleranceEgalite;
}

} // namespace

pointDuDessin& pointDuDessin::operator=(const pointXYZ& point)
{
    setXY(point.x, point.y, point.z);
    code = point.code;
    setNomPoint(point.nom.c_str());
    return *this;
}

bool pointDuDessin::operator==(const pointDuDessin& autre) const
{
    return proches(X, autre.X) && proches(Y, autre.Y) && proches(Z, autre.Z) && code == autre.code &&
           memesLettres(nom, autre.nom);
}

double pointDuDessin::distanceTo(const pointDuDessin& autre) const
{
    const double dx = autre.X - X;
    const double dy = autre.Y - Y;
    return std::sqrt(dx * dx + dy * dy);
}

void pointDuDessin::getXY(double& x, double& y) const
{
    x = X;
    y = Y;
}

void pointDuDessin::setXY(double x, double y, double z)
{
    setX(x);
    setY(y);
    setZ(z);
}

void pointDuDessin::setNomPoint(const char* leNom)
{
    char copie[tailleNom] = {}; // leNom may be this point's own name
    if (leNom)
        std::memcpy(copie, leNom, strnlen(leNom, longueurNom));
    std::memcpy(nom, copie, tailleNom);
}

void pointDuDessin::setNomPoint(const wchar_t* leNom)
{
    versAnsi(leNom, nom, tailleNom);
}

void pointDuDessin::setParams(const wchar_t* leNom, const AcGePoint3d& position, int leCode)
{
    setNomPoint(leNom);
    setXY(position.x, position.y, position.z);
    code = leCode;
}

int pointDuDessin::saveToXRecord(QuarvelSerializer* s) const
{
    // Older siblings set any number: one that cannot be stored must not cost the whole project.
    return s->writeBytes(nom, tailleNom) && s->writeInt(code) && s->writeDouble(coordonnee(X)) &&
           s->writeDouble(coordonnee(Y)) && s->writeDouble(coordonnee(Z)) && s->writeId(id);
}

int pointDuDessin::readFromXRecord(QuarvelSerializer* s)
{
    const int lu = s->readBytes(nom, tailleNom) && s->readInt(code) && s->readDouble(X) && s->readDouble(Y) &&
                   s->readDouble(Z) && s->readId(id);
    nom[longueurNom] = '\0'; // a stored name may lack its zero
    setXY(X, Y, Z);
    return lu;
}
