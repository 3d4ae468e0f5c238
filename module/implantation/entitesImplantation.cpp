#include "implantation/entitesImplantation.h"

#include <algorithm>
#include <memory>

#include "codification/donneesEtendues.h"
#include "services/calqueNomme.h"
#include "services/chaineResbuf.h"
#include "services/espaceObjet.h"

#include "acdb.h"
#include "afx.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbenttxt.h"
#include "dbpl.h"
#include "dbsymtb.h"

namespace {

AcDbObjectId calqueImplantation()
{
    constexpr Adesk::UInt16 blanc = 7;
    return calqueNomme(acdbHostApplicationServices()->workingDatabase(), L"IMPLANTATION", blanc);
}

using entites = std::vector<std::unique_ptr<AcDbEntity>>;

AcGePoint2d hote(point2 p)
{
    return {p.x, p.y};
}
AcGePoint3d hote3(point2 p)
{
    return {p.x, p.y, 0.0};
}

/// One line from arm to arm, so that a marker is one entity.
std::unique_ptr<AcDbEntity> croixDe(const dessinPlan::marque& c)
{
    const point2 h{c.taille / 2.0, 0.0}, v{0.0, c.taille / 2.0};
    auto croix = std::make_unique<AcDbPolyline>(5U);
    for (const point2 p : {c.centre - h, c.centre + h, c.centre, c.centre + v, c.centre - v})
        croix->addVertexAt(croix->numVerts(), hote(p));
    return croix;
}

std::unique_ptr<AcDbEntity> texteDe(const dessinPlan::texte& t)
{
    auto texte = std::make_unique<AcDbText>(hote3(t.place), t.contenu.c_str(), AcDbObjectId(), t.hauteur, t.angle);
    if (t.ancre != dessinPlan::calage::debut) {
        texte->setHorizontalMode(t.ancre == dessinPlan::calage::milieu ? AcDb::kTextCenter : AcDb::kTextRight);
        texte->setAlignmentPoint(hote3(t.place));
    }
    return texte;
}

entites entitesDe(const dessinPlan& dessin)
{
    const AcDbObjectId calque = calqueImplantation();
    entites liste;
    const auto ajouter = [&](std::unique_ptr<AcDbEntity> entite, int couleur) {
        entite->setDatabaseDefaults();
        if (!calque.isNull())
            entite->setLayer(calque);
        entite->setColorIndex(static_cast<Adesk::UInt16>(std::clamp(couleur, 0, 256)));
        liste.push_back(std::move(entite));
    };
    for (const auto& c : dessin.croix)
        ajouter(croixDe(c), c.couleur);
    for (const auto& t : dessin.traits)
        ajouter(std::make_unique<AcDbLine>(hote3(t.de), hote3(t.vers)), t.couleur);
    for (const auto& t : dessin.triangles)
        ajouter(std::make_unique<AcDbSolid>(hote3(t.coins[0]), hote3(t.coins[1]), hote3(t.coins[2])), t.couleur);
    for (const auto& t : dessin.textes)
        if (!t.contenu.empty() && t.hauteur > 0.0)
            ajouter(texteDe(t), t.couleur);
    return liste;
}

/// What the job drew itself: a lock on its layer must not leave previews behind.
class entitePropre : public AcDbObjectPointer<AcDbEntity> {
public:
    explicit entitePropre(const AcDbObjectId& id) : AcDbObjectPointer(id, AcDb::kForWrite, false, true) {}
};

void marquer(const AcDbObjectId& id, const marqueImplantation& marque)
{
    const entitePropre entite(id);
    if (entite.openStatus() != Acad::eOk)
        return;
    chaineResbuf donnees;
    donnees.ajouter(AcDb::kDxfRegAppName, applicationImplantation);
    donnees.ajouter(AcDb::kDxfXdInteger32, marque.genre);
    donnees.ajouter(AcDb::kDxfXdInteger32, static_cast<int>(marque.identifiant));
    entite->setXData(donnees.tete());
}

std::wstring nomLibre(const AcDbBlockTable& table, const std::wstring& voulu)
{
    std::wstring propre = voulu;
    for (wchar_t& c : propre)
        if (c < L' ' || std::wstring_view(L"<>/\\\":;?*|,=`").find(c) != std::wstring_view::npos)
            c = L'_';
    std::wstring nom = propre;
    for (int i = 2; table.has(nom.c_str()); ++i)
        nom = propre + L'-' + std::to_wstring(i);
    return nom;
}

AcDbObjectId definirBloc(AcDbDatabase& db, const std::wstring& nom, entites liste)
{
    AcDbBlockTable* table = nullptr;
    if (db.getBlockTable(table, AcDb::kForWrite) != Acad::eOk)
        return {};
    auto bloc = std::make_unique<AcDbBlockTableRecord>();
    bloc->setName(nomLibre(*table, nom).c_str());
    AcDbObjectId id;
    if (table->add(id, bloc.get()) == Acad::eOk) {
        for (auto& entite : liste) {
            AcDbObjectId dedans;
            if (bloc->appendAcDbEntity(dedans, entite.get()) == Acad::eOk)
                entite.release()->close();
        }
        bloc.release()->close();
    }
    table->close();
    return id;
}

} // namespace

void declarerApplications()
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    if (!db)
        return;
    declarerApplication(*db, applicationImplantation);
    declarerApplication(*db, applicationHauteurs);
}

std::vector<AcDbObjectId> dessinerEntites(const dessinPlan& dessin, const marqueImplantation& marque)
{
    declarerApplications();
    std::vector<AcDbObjectId> ids;
    for (auto& entite : entitesDe(dessin)) {
        const AcDbObjectId id = ajouterEspaceObjet(std::move(entite));
        if (id.isNull())
            continue;
        marquer(id, marque);
        ids.push_back(id);
    }
    return ids;
}

AcDbObjectId dessinerGroupe(const dessinPlan& dessin, const std::wstring& nom)
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    entites liste = entitesDe(dessin);
    if (!db || liste.empty())
        return {};
    declarerApplications();
    const AcDbObjectId bloc = definirBloc(*db, nom, std::move(liste));
    if (bloc.isNull())
        return {};
    auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(), bloc);
    reference->setDatabaseDefaults();
    if (const AcDbObjectId calque = calqueImplantation(); !calque.isNull())
        reference->setLayer(calque);
    const AcDbObjectId id = ajouterEspaceObjet(std::move(reference));
    if (!id.isNull())
        marquer(id, {});
    return id;
}

void effacerEntites(std::vector<AcDbObjectId>& ids)
{
    for (const AcDbObjectId& id : ids)
        if (const entitePropre entite(id); entite.openStatus() == Acad::eOk)
            entite->erase();
    ids.clear();
}
