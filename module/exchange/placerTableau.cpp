#include "exchange/placerTableau.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <unordered_map>

#include "codification/donneesEtendues.h"
#include "codification/symbolePoint.h"
#include "points/listePointsDuDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/calqueVerrouille.h"
#include "services/chaineResbuf.h"
#include "services/codages.h"
#include "services/dialogueMessage.h"
#include "services/ecrituresDuModule.h"
#include "services/espaceObjet.h"
#include "services/formatNombres.h"
#include "services/reglages.h"
#include "services/selection.h"

#include "aced.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbjig.h"
#include "dbsymtb.h"

namespace {

constexpr const wchar_t* reglageParams = L"tablexyz";
constexpr int decimalesCoordonnees = 3;

std::wstring fixe(double valeur, int decimales)
{
    return valeur == inconnu ? std::wstring() : formaterFixe(valeur, decimales);
}

std::vector<rangeeTable> rangeesDe(const listePointsDuDessin& table, std::span<const int> places,
                                   const tableCodification& codes)
{
    const codifPoint sansCode;
    std::vector<rangeeTable> rangees;
    rangees.reserve(places.size());
    for (const int place : places) {
        const pointDuDessin& point = *table.getData(place);
        const int index = codes.indexCode(point.getCode());
        const codifPoint& code = index < 0 ? sansCode : codes[index];
        rangees.push_back({depuisAnsi(point.getNomPoint()), fixe(point.getX(), decimalesCoordonnees),
                           fixe(point.getY(), decimalesCoordonnees), fixe(point.getZ(), code.precisionAltitudes),
                           std::to_wstring(point.getCode()), index < 0 ? std::wstring() : code.libelle});
    }
    return rangees;
}

/// Widths of texts as the host shows them. Digits, which most texts are made of, are measured once.
class mesureTextes {
public:
    explicit mesureTextes(double taille) : m_taille(taille) {}

    double operator()(const std::wstring& texte)
    {
        double somme = 0.0;
        for (const wchar_t c : texte) {
            auto [largeur, nouveau] = m_lettres.try_emplace(c, 0.0);
            if (nouveau)
                largeur->second = largeurDe(std::wstring(2, c)) - largeurDe(std::wstring(1, c));
            somme += largeur->second;
        }
        return somme;
    }

private:
    double largeurDe(const std::wstring& texte) const
    {
        const AcDbText mesure(AcGePoint3d(), texte.c_str(), AcDbObjectId::kNull, m_taille);
        AcDbExtents etendue;
        return mesure.getGeomExtents(etendue) == Acad::eOk ? etendue.maxPoint().x - etendue.minPoint().x : m_taille;
    }

    double m_taille;
    std::unordered_map<wchar_t, double> m_lettres;
};

// --- A table drawn before -------------------------------------------------------------------------------------------

struct tableauDessine {
    int numero = 0;
    AcGePoint3d origine;
    std::vector<AcDbObjectId> entites;
};

std::optional<AcGePoint3d> placeDe(AcDbEntity& entite)
{
    if (auto* const ligne = AcDbLine::cast(&entite))
        return ligne->startPoint();
    if (auto* const texte = AcDbText::cast(&entite)) // the host moves the position of texts that are aligned otherwise
        return texte->horizontalMode() == AcDb::kTextLeft ? texte->position() : texte->alignmentPoint();
    if (auto* const bloc = AcDbBlockReference::cast(&entite))
        return bloc->position();
    return std::nullopt;
}

/// An entity of a table, and where it says that the table's origin is.
struct morceauTableau {
    AcDbObjectId id;
    AcGePoint3d origine;
    bool bloc;
};

/// The oldest of the entities whose origin many tell: copies come later, pieces that were dragged off tell others.
/// @param morceaux the oldest first
const morceauTableau* premierDesNombreux(std::span<const morceauTableau> morceaux)
{
    constexpr int hasard = 2; // lines that begin at one place
    const auto placeEntiere = [](const AcGePoint3d& p) {
        return std::tuple(std::round(p.x * 1e3), std::round(p.y * 1e3), std::round(p.z * 1e3));
    };
    std::map<std::tuple<double, double, double>, int> nombres;
    for (const morceauTableau& m : morceaux)
        ++nombres[placeEntiere(m.origine)];
    const auto nombreux = std::ranges::find_if(
        morceaux, [&](const morceauTableau& m) { return m.bloc || nombres[placeEntiere(m.origine)] > hasard; });
    return nombreux == morceaux.end() ? nullptr : &*nombreux;
}

/// Of the entities that bear a table's number, the table itself. Copies of it tell other origins and stay; but where
/// hardly two tell the same one, the table was turned, and they all are.
/// @param morceaux the oldest first
tableauDessine sansCopies(int numero, std::span<const morceauTableau> morceaux)
{
    constexpr double tolerance = 1e-4;
    const morceauTableau* const droit = premierDesNombreux(morceaux);
    tableauDessine tableau{numero, droit ? droit->origine : morceaux.front().origine, {}};
    for (const morceauTableau& m : morceaux)
        if (!droit || m.origine.distanceTo(droit->origine) < tolerance)
            tableau.entites.push_back(m.id);
    return tableau;
}

/// The one drawn last; nothing when there is none.
std::optional<tableauDessine> dernierTableau()
{
    int numeroDernier = 0;
    std::vector<morceauTableau> morceaux;
    for (const AcDbObjectId& id : selectionAvecDonnees(applicationTable)) {
        const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForRead);
        if (entite.openStatus() != Acad::eOk)
            continue;
        const chaineResbuf donnees(entite->xData(applicationTable));
        const resbuf* const numero = donnees.tete() ? donnees.tete()->rbnext : nullptr;
        const resbuf* const ecart = numero ? numero->rbnext : nullptr;
        const auto place = placeDe(*entite.object());
        if (!ecart || !place || numero->restype != AcDb::kDxfXdInteger32 || ecart->restype != AcDb::kDxfXdXCoord)
            continue;
        const int rang = static_cast<int>(numero->resval.rlong);
        if (rang > numeroDernier || morceaux.empty()) {
            numeroDernier = rang;
            morceaux.clear();
        }
        const double* const e = ecart->resval.rpoint;
        if (rang == numeroDernier)
            morceaux.push_back({id,
                                {place->x - e[0], place->y - e[1], place->z - e[2]},
                                AcDbBlockReference::cast(entite.object()) != nullptr});
    }
    if (morceaux.empty())
        return std::nullopt;
    std::ranges::sort(morceaux, {}, [](const morceauTableau& m) { return Adesk::UInt64(m.id.handle()); });
    return sansCopies(numeroDernier, morceaux);
}

bool estTenu(const tableauDessine& tableau)
{
    return std::ranges::any_of(tableau.entites, estVerrouille);
}

void effacer(std::span<const AcDbObjectId> entites)
{
    for (const AcDbObjectId& id : entites) {
        const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
        if (entite.openStatus() == Acad::eOk)
            entite->erase();
    }
}

// --- Drawing --------------------------------------------------------------------------------------------------------

/// The outline of the table follows the cursor.
class jigContour : public AcEdJig {
public:
    jigContour(double largeur, double hauteur) : m_largeur(largeur), m_hauteur(hauteur), m_contour(4)
    {
        for (unsigned int i = 0; i < 4; ++i)
            m_contour.addVertexAt(i, AcGePoint2d());
        m_contour.setClosed(Adesk::kTrue);
        setDispPrompt(L"\nPosition du coin haut gauche de la table");
        poser();
    }

    DragStatus sampler() override
    {
        AcGePoint3d place;
        const DragStatus etat = acquirePoint(place);
        if (etat != kNormal)
            return etat;
        if (place == m_place)
            return kNoChange;
        m_place = place;
        return kNormal;
    }
    Adesk::Boolean update() override
    {
        poser();
        return Adesk::kTrue;
    }
    AcDbEntity* entity() const override { return const_cast<AcDbPolyline*>(&m_contour); }
    AcGePoint3d place() const { return m_place; }

private:
    void poser()
    {
        const double x = m_place.x, y = m_place.y;
        m_contour.setPointAt(0, {x, y});
        m_contour.setPointAt(1, {x + m_largeur, y});
        m_contour.setPointAt(2, {x + m_largeur, y - m_hauteur});
        m_contour.setPointAt(3, {x, y - m_hauteur});
    }

    double m_largeur, m_hauteur;
    AcGePoint3d m_place;
    AcDbPolyline m_contour;
};

std::vector<std::unique_ptr<AcDbEntity>> entitesDuTableau(const tableauCoordonnees& tableau, double taille,
                                                          const AcGePoint3d& origine)
{
    const auto place = [&origine](double x, double y) { return AcGePoint3d(origine.x + x, origine.y + y, origine.z); };
    std::vector<std::unique_ptr<AcDbEntity>> entites;
    for (const traitTable& t : tableau.traits)
        entites.push_back(std::make_unique<AcDbLine>(place(t.x1, t.y1), place(t.x2, t.y2)));
    for (const texteTable& t : tableau.textes) {
        auto texte = std::make_unique<AcDbText>(place(t.x, t.y), t.texte.c_str(), AcDbObjectId::kNull, taille);
        if (t.aDroite) {
            texte->setHorizontalMode(AcDb::kTextRight);
            texte->setAlignmentPoint(place(t.x, t.y));
        }
        entites.push_back(std::move(texte));
    }
    return entites;
}

/// Gives an entity of a table its extended data: the table's number in the drawing, and where the entity stands from
/// the table's origin, so that a table that was moved is replaced where it is. The drawing has not got the entity yet:
/// one on a locked layer could not be changed any more.
void marquer(AcDbEntity& entite, int numero, const AcGePoint3d& origine)
{
    const auto place = placeDe(entite);
    if (!place)
        return;
    const ads_point ecart{place->x - origine.x, place->y - origine.y, place->z - origine.z};
    chaineResbuf donnees;
    donnees.ajouter(AcDb::kDxfRegAppName, applicationTable);
    donnees.ajouter(AcDb::kDxfXdInteger32, numero);
    donnees.ajouter(AcDb::kDxfXdXCoord, ecart);
    entite.setXData(donnees.tete());
}

/// An anonymous block of the entities, about their origin; null when the drawing refuses it.
AcDbObjectId blocDuTableau(AcDbDatabase& db, const tableauCoordonnees& tableau, double taille)
{
    const AcDbObjectPointer<AcDbBlockTable> blocs(db.blockTableId(), AcDb::kForWrite);
    auto bloc = std::make_unique<AcDbBlockTableRecord>();
    bloc->setName(L"*U");
    AcDbObjectId id;
    if (blocs.openStatus() != Acad::eOk || blocs->add(id, bloc.get()) != Acad::eOk)
        return {};
    AcDbBlockTableRecord* const ouvert = bloc.release();
    for (auto& entite : entitesDuTableau(tableau, taille, AcGePoint3d()))
        if (ouvert->appendAcDbEntity(entite.get()) == Acad::eOk)
            entite.release()->close();
    ouvert->close();
    return id;
}

/// @return false when the drawing refuses it: no part of it stays
bool dessiner(const tableauCoordonnees& tableau, const paramsTable& params, const AcGePoint3d& origine, int numero)
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    if (!db || !declarerApplication(*db, applicationTable))
        return false;
    std::vector<std::unique_ptr<AcDbEntity>> entites;
    if (!params.grouper)
        entites = entitesDuTableau(tableau, params.tailleTextes, origine);
    else if (const AcDbObjectId bloc = blocDuTableau(*db, tableau, params.tailleTextes); !bloc.isNull())
        entites.push_back(std::make_unique<AcDbBlockReference>(origine, bloc));
    std::vector<AcDbObjectId> dessinees;
    for (auto& entite : entites) {
        marquer(*entite, numero, origine);
        dessinees.push_back(ajouterEspaceObjet(std::move(entite)));
        if (dessinees.back().isNull()) {
            effacer(dessinees);
            return false;
        }
    }
    return !dessinees.empty();
}

} // namespace

paramsTable lireParamsTable()
{
    return paramsDeTexte(versAnsi(lireReglage(reglageParams, L"")));
}

void garderParamsTable(const paramsTable& params)
{
    garderReglage(reglageParams, depuisAnsi(texteParams(params)));
}

bool placerTableau(const listePointsDuDessin& table, std::span<const int> places, const tableCodification& codes,
                   const paramsTable& params)
{
    const tableauCoordonnees tableau =
        composerTableau(rangeesDe(table, places, codes), params, mesureTextes(params.tailleTextes));
    const auto ancien = dernierTableau();
    bool remplacer = false;
    if (ancien) {
        const reponseQuestion reponse = demanderOuiNonAnnuler(
            L"Table XYZ", L"Le dessin a déjà une table de coordonnées.\nLa remplacer, à sa place ?");
        if (reponse == reponseQuestion::annuler)
            return false;
        remplacer = reponse == reponseQuestion::oui;
        if (remplacer && estTenu(*ancien)) {
            afficherAvertissement(L"Table XYZ", L"L'ancienne table est sur un calque verrouillé :\n"
                                                L"déverrouillez-le d'abord");
            return false;
        }
    }
    jigContour jig(tableau.largeur, tableau.hauteur);
    if (!remplacer && jig.drag() != AcEdJig::kNormal)
        return false;
    const CAcadUndoGroup groupe;
    if (!dessiner(tableau, params, remplacer ? ancien->origine : jig.place(), ancien ? ancien->numero + 1 : 1)) {
        afficherAvertissement(L"Table XYZ", remplacer ? L"Le dessin refuse la nouvelle table : l'ancienne y reste"
                                                      : L"Le dessin refuse la table");
        return false;
    }
    if (remplacer)
        effacer(ancien->entites);
    return true;
}
