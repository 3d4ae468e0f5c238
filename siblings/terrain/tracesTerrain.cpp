#include "tracesTerrain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>

#include "services/ajoutEntites.h"
#include "services/calqueNomme.h"
#include "services/chaineResbuf.h"
#include "services/formatNombres.h"
#include "services/selection.h"
#include "sol/cotesCourbes.h"

#include "adscodes.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace {

constexpr wchar_t application[] = L"VELA_TERRAIN";
enum class trace : short { triangle = 1, courbe = 2, profil = 3 };

AcDbDatabase& dessinCourant()
{
    return *acdbHostApplicationServices()->workingDatabase();
}

AcDbObjectId calque(const wchar_t* nom, Adesk::UInt16 couleur)
{
    return calqueNomme(&dessinCourant(), nom, couleur);
}

void declarerApplication()
{
    AcDbRegAppTable* ouvertes = nullptr;
    if (dessinCourant().getRegAppTable(ouvertes, AcDb::kForWrite) != Acad::eOk)
        return;
    if (!ouvertes->has(application)) {
        auto nouvelle = std::make_unique<AcDbRegAppTableRecord>();
        nouvelle->setName(application);
        if (ouvertes->add(nouvelle.get()) == Acad::eOk)
            nouvelle.release()->close();
    }
    ouvertes->close();
}

std::wstring poignee(AcDbObjectId id)
{
    std::array<ACHAR, 20> texte{};
    id.handle().getIntoAsciiBuffer(texte.data(), texte.size());
    return texte.data();
}

/// Draws entities of one kind for one model.
class dessinateur {
public:
    dessinateur(AcDbObjectId modele, trace nature)
    {
        declarerApplication();
        marque.ajouter(AcDb::kDxfRegAppName, application);
        marque.ajouter(AcDb::kDxfXdHandle, poignee(modele).c_str());
        marque.ajouter(AcDb::kDxfXdInteger16, static_cast<short>(nature));
    }

    void dessiner(std::unique_ptr<AcDbEntity> entite, AcDbObjectId surCalque)
    {
        entite->setLayer(surCalque);
        marquer(espace.ajouter(std::move(entite)));
    }
    void ecrire(const lieuSol& place, const std::wstring& texte, double hauteur, double angle, AcDbObjectId surCalque,
                calageTexte calage)
    {
        dessiner(texteCale({place.x, place.y, 0.0}, texte, hauteur, angle, calage), surCalque);
    }

private:
    void marquer(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite, false, true);
        if (entite.openStatus() == Acad::eOk)
            entite->setXData(marque.tete());
    }

    ajoutEntites espace;
    chaineResbuf marque;
};

/// Whether an entity was drawn for that model, as that.
bool estTrace(const AcDbEntity& entite, const std::wstring& modele, trace nature)
{
    const chaineResbuf donnees(entite.xData(application));
    const resbuf* const nom = donnees.tete() ? donnees.tete()->rbnext : nullptr;
    const resbuf* const genre = nom ? nom->rbnext : nullptr;
    return genre && nom->restype == AcDb::kDxfXdHandle && modele == nom->resval.rstring &&
           genre->restype == AcDb::kDxfXdInteger16 && genre->resval.rint == static_cast<short>(nature);
}

std::vector<AcDbObjectId> traces(AcDbObjectId modele, trace nature)
{
    const std::wstring nom = poignee(modele);
    std::vector<AcDbObjectId> trouvees;
    for (const AcDbObjectId& id : selectionAvecDonnees(application)) {
        const AcDbObjectPointer<AcDbEntity> entite(id);
        if (entite.openStatus() == Acad::eOk && estTrace(*entite.object(), nom, nature))
            trouvees.push_back(id);
    }
    return trouvees;
}

/// On locked layers too: what is drawn anew would stand on top of what was.
int effacer(const std::vector<AcDbObjectId>& ids)
{
    int effacees = 0;
    for (const AcDbObjectId& id : ids) {
        const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite, false, true);
        effacees += entite.openStatus() == Acad::eOk && entite->erase() == Acad::eOk ? 1 : 0;
    }
    return effacees;
}

AcGePoint3d position(const sommetSol& s)
{
    return {s.x, s.y, s.z};
}

/// Decimals that tell the multiples of an interval apart.
int decimalesDe(double intervalle)
{
    int decimales = 0;
    for (double pas = intervalle; decimales < 3 && std::abs(pas - std::round(pas)) > 1e-6; ++decimales)
        pas *= 10.0;
    return decimales;
}

std::unique_ptr<AcDbPolyline> polyligne(const std::vector<lieuSol>& points, bool fermee, double altitude)
{
    auto ligne = std::make_unique<AcDbPolyline>(static_cast<unsigned int>(points.size()));
    for (const lieuSol& p : points)
        ligne->addVertexAt(ligne->numVerts(), AcGePoint2d(p.x, p.y));
    ligne->setClosed(fermee ? Adesk::kTrue : Adesk::kFalse);
    ligne->setElevation(altitude);
    return ligne;
}

} // namespace

bool estTraceDeModele(const AcDbEntity& entite)
{
    return chaineResbuf(entite.xData(application)).tete() != nullptr;
}

// ---- triangles

int dessinerTriangles(AcDbObjectId modele, const std::wstring& nom, const maillageTerrain& sol)
{
    constexpr Adesk::UInt16 gris = 8;
    const AcDbObjectId sur = calque((L"MNT_" + nom).c_str(), gris);
    dessinateur plume(modele, trace::triangle);
    int nombre = 0;
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t) {
        if (!sol.triangle(t).dedans)
            continue;
        plume.dessiner(
            std::make_unique<AcDbFace>(position(sol.coin(t, 0)), position(sol.coin(t, 1)), position(sol.coin(t, 2))),
            sur);
        ++nombre;
    }
    return nombre;
}

int effacerTriangles(AcDbObjectId modele)
{
    return effacer(traces(modele, trace::triangle));
}

bool trianglesDessines(AcDbObjectId modele)
{
    return !traces(modele, trace::triangle).empty();
}

// ---- contours

bilanCourbes dessinerCourbes(AcDbObjectId modele, const maillageTerrain& sol, const reglagesCourbes& reglages)
{
    constexpr Adesk::UInt16 bistre = 32, bistreFonce = 34;
    if (reglages.remplacer)
        effacer(traces(modele, trace::courbe));
    const AcDbObjectId courantes = calque(L"MNT_COURBES", bistre);
    const AcDbObjectId maitresses = calque(L"MNT_COURBES_MAITRESSES", bistreFonce);
    const AcDbObjectId textes = calque(L"MNT_COURBES_COTES", bistreFonce);
    const int decimales = decimalesDe(reglages.demande.intervalle);
    bilanCourbes bilan;
    dessinateur plume(modele, trace::courbe);
    for (const courbeNiveau& courbe : courbesDeNiveau(sol, reglages.demande)) {
        const double rang = std::round(courbe.altitude / reglages.demande.intervalle);
        const bool maitresse = reglages.maitresse > 0 && std::fmod(rang, reglages.maitresse) == 0.0;
        ++(maitresse ? bilan.maitresses : bilan.courbes);
        const AcDbObjectId sur = maitresse ? maitresses : courantes;
        if (!reglages.coter || (!maitresse && reglages.maitresse > 0)) {
            plume.dessiner(polyligne(courbe.points, courbe.fermee, courbe.altitude), sur);
            continue;
        }
        const std::wstring texte = formaterFixe(courbe.altitude, decimales);
        const double largeur = (0.8 * static_cast<double>(texte.size()) + 1.0) * reglages.hauteurTexte;
        const courbeCotee cotee = coter(courbe, largeur, reglages.espacement);
        for (const courbeNiveau& troncon : cotee.troncons)
            plume.dessiner(polyligne(troncon.points, troncon.fermee, courbe.altitude), sur);
        for (const coteCourbe& cote : cotee.cotes)
            plume.ecrire(cote.lieu, texte, reglages.hauteurTexte, cote.angle, textes, calageTexte::milieu);
        bilan.cotes += static_cast<int>(cotee.cotes.size());
    }
    return bilan;
}

// ---- profile

namespace {

/// Where a point of the profile stands in the figure.
struct echelleProfil {
    lieuSol de, bas;
    double plan, facteur; // altitude of the figure's base

    double abscisse(const sommetSol& s) const { return std::hypot(s.x - de.x, s.y - de.y); }
    lieuSol en(const sommetSol& s) const { return {bas.x + abscisse(s), bas.y + (s.z - plan) * facteur}; }
};

} // namespace

void dessinerProfil(AcDbObjectId modele, const parcoursTerrain::polylignes& profil, const lieuSol& de,
                    const lieuSol& bas, double facteur, double hauteurTexte)
{
    constexpr Adesk::UInt16 vert = 3;
    constexpr double rangee = 6.0, quartDeTour = std::numbers::pi / 2.0; // row of texts, in text heights
    const AcDbObjectId sur = calque(L"MNT_PROFIL", vert);
    double plusBas = profil.front().front().z, longueur = 0.0;
    for (const auto& troncon : profil)
        for (const sommetSol& s : troncon) {
            plusBas = std::min(plusBas, s.z);
            longueur = std::max(longueur, std::hypot(s.x - de.x, s.y - de.y));
        }
    const double bande = rangee * hauteurTexte;
    const echelleProfil echelle{de, {bas.x, bas.y + 2.0 * bande}, std::floor(plusBas) - 1.0, facteur};
    dessinateur plume(modele, trace::profil);
    const auto ligne = [&](const lieuSol& p, const lieuSol& q) {
        plume.dessiner(std::make_unique<AcDbLine>(AcGePoint3d(p.x, p.y, 0.0), AcGePoint3d(q.x, q.y, 0.0)), sur);
    };
    for (int i = 0; i < 3; ++i)
        ligne({bas.x, bas.y + i * bande}, {bas.x + longueur, bas.y + i * bande});
    const auto titre = [&](int rang, const wchar_t* texte) {
        plume.ecrire({bas.x - hauteurTexte, bas.y + (rang + 0.5) * bande}, texte, hauteurTexte, 0.0, sur,
                     calageTexte::droite);
    };
    titre(0, L"Distances");
    titre(1, L"Altitudes");
    plume.ecrire({bas.x - hauteurTexte, echelle.bas.y + hauteurTexte}, L"PC " + formaterFixe(echelle.plan, 2),
                 hauteurTexte, 0.0, sur, calageTexte::droite);
    double dernierTexte = -1e30;
    for (const auto& troncon : profil) {
        std::vector<lieuSol> points;
        for (std::size_t i = 0; i < troncon.size(); ++i) {
            const lieuSol p = echelle.en(troncon[i]);
            points.push_back(p);
            const bool bout = i == 0 || i + 1 == troncon.size();
            if (!bout && p.x - dernierTexte < 1.6 * hauteurTexte) // texts would lie on each other
                continue;
            dernierTexte = p.x;
            ligne({p.x, bas.y + 2.0 * bande}, p);
            const auto colonne = [&](int rang, double valeur) {
                plume.ecrire({p.x, bas.y + (rang + 0.5) * bande}, formaterFixe(valeur, 2), hauteurTexte, quartDeTour,
                             sur, calageTexte::milieu);
            };
            colonne(0, echelle.abscisse(troncon[i]));
            colonne(1, troncon[i].z);
        }
        plume.dessiner(polyligne(points, false, 0.0), sur);
    }
}
