#include "codification/codificationDuModule.h"
#include "codification/miseAJourSymbole.h"
#include "points/pointDuDessin.h"
#include "services/calqueVerrouille.h"
#include "services/codages.h"
#include "services/lettres.h"

#include "dbapserv.h"

/// The members of a point that need its code and its symbol: points are a layer of their own below codes and symbols,
/// and declare them only.

namespace {

constexpr std::wstring_view blancs = L" \t";

donneesSymbole donneesDe(const pointDuDessin& point)
{
    donneesSymbole donnees;
    donnees.code = point.getCode();
    donnees.x = point.getX();
    donnees.y = point.getY();
    donnees.z = point.getZ();
    donnees.nom = depuisAnsi(point.getNomPoint());
    return donnees;
}

} // namespace

void pointDuDessin::getZAsString(CString& texte) const
{
    texte = altitudeConnue() ? texteAltitude(Z, codificationDuModule().getCodif(code)).c_str() : L"";
}

void pointDuDessin::creer(bool creerCalques, const wchar_t* observation)
{
    donneesSymbole donnees = donneesDe(*this);
    donnees.nom = enMajuscules(std::wstring(sansBlancs(donnees.nom, blancs)));
    donnees.observation = sansBlancs(observation ? observation : L"", blancs);
    insererSymbolePoint(donnees, acdbHostApplicationServices()->workingDatabase(), codificationDuModule(), id,
                        altitudeConnue(), creerCalques);
}

void pointDuDessin::updateDrawing()
{
    if (estVerrouille(id)) // it stays, and a second one on top of it would be worse
        return;
    if (actualiserSymbole(id, donneesDe(*this), codificationDuModule().getCodif(code)))
        return;
    creer(true);
}

int pointDuDessin::updateFromDrawing(const AcDbObjectId& symbole)
{
    id.setNull();
    donneesSymbole lues;
    const lectureSymbole lecture = lireSymbole(symbole, lues);
    if (lecture == lectureSymbole::autreEntite)
        return 0;
    X = lues.x;
    Y = lues.y;
    id = symbole;
    if (lecture == lectureSymbole::sansNom)
        return 0;
    setNomPoint(lues.nom.c_str());
    code = lues.code;
    Z = lues.z;
    return 1;
}
