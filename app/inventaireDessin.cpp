#include "inventaireDessin.h"

#include <cmath>
#include <memory>

#include "ap/Document.h"
#include "db/DatabaseImpl.h"
#include "gi/EntityGraphics.h"
#include "gi/LayoutDrawing.h"
#include "platform/CodePage.h"
#include "points/projetDansDessin.h"

#include "dbents.h"
#include "dbproxy.h"
#include "dbsymtb.h"

using platform::utf8FromWide;

namespace {

std::string nomDuRecord(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbSymbolTableRecord> record(id);
    const ACHAR* nom = nullptr;
    return record.object() && record->getName(nom) == Acad::eOk ? utf8FromWide(nom) : std::string();
}

/// Counts while it walks through the blocks of a drawing.
class recensement {
public:
    recensement(AcDbDatabase& leDessin, inventaireDessin& lInventaire) : dessin(leDessin), inventaire(lInventaire) {}

    void recenser()
    {
        compterCalques();
        AcDbBlockTable* table = nullptr;
        if (dessin.getBlockTable(table, AcDb::kForRead) != Acad::eOk)
            return;
        AcDbSymbolTableIterator* lus = nullptr;
        table->newIterator(lus);
        const std::unique_ptr<AcDbSymbolTableIterator> blocs(lus);
        table->close();
        for (; blocs && !blocs->done(); blocs->step()) {
            AcDbObjectId id;
            blocs->getRecordId(id);
            compterBloc(id);
        }
        for (std::size_t i = 0; i < inventaire.blocs.size(); ++i)
            inventaire.blocs[i].insertions = insertions[definitions[i]];
        for (const auto& [calque, nombre] : entitesParCalque)
            inventaire.parCalque[nomDuRecord(AcDbObjectId(calque))] += nombre;
        if (!etendue.isEmpty())
            inventaire.etendueCalculee = etendue;
    }

private:
    void compterCalques()
    {
        AcDbLayerTable* table = nullptr;
        if (dessin.getLayerTable(table, AcDb::kForRead) != Acad::eOk)
            return;
        AcDbSymbolTableIterator* lus = nullptr;
        table->newIterator(lus);
        const std::unique_ptr<AcDbSymbolTableIterator> calques(lus);
        table->close();
        for (; calques && !calques->done(); calques->step()) {
            AcDbObjectId id;
            calques->getRecordId(id);
            entitesParCalque[id.stub()] = 0;
        }
    }

    void compterBloc(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> bloc(id);
        if (!bloc.object())
            return;
        const ACHAR* nom = nullptr;
        bloc->getName(nom);
        const bool objet = id.stub() == dessin.impl().blocks().modelSpace();
        AcDbBlockTableRecordIterator* lues = nullptr;
        bloc->newIterator(lues);
        const std::unique_ptr<AcDbBlockTableRecordIterator> entites(lues);
        std::size_t nombre = 0;
        for (; entites && !entites->done(); entites->step(), ++nombre)
            compterEntite(*entites, bloc->isLayout(), objet);
        if (!bloc->isLayout()) {
            inventaire.blocs.push_back({utf8FromWide(nom), nombre, 0});
            definitions.push_back(id.stub());
        } else {
            (objet ? inventaire.entitesObjet : inventaire.entitesPapier) += nombre;
        }
    }

    void compterEntite(const AcDbBlockTableRecordIterator& place, bool visible, bool objet)
    {
        AcDbObjectId id;
        place.getEntityId(id);
        const AcDbObjectPointer<AcDbEntity> entite(id);
        if (!entite.object())
            return;
        if (const auto* const reference = AcDbBlockReference::cast(entite.object()))
            ++insertions[reference->blockTableRecord().stub()];
        if (!visible)
            return;
        ++inventaire.parClasse[dessin.impl().typeName(*recordOf(id))];
        ++entitesParCalque[entite->layerId().stub()];
        AcDbExtents boite;
        if (objet && entite->getGeomExtents(boite) == Acad::eOk)
            etendue.addExt(boite);
    }

    AcDbDatabase& dessin;
    inventaireDessin& inventaire;
    AcDbExtents etendue;
    std::map<AcDbStub*, std::size_t> entitesParCalque;
    std::map<AcDbStub*, std::size_t> insertions; // by block
    std::vector<AcDbStub*> definitions;          // of inventaire.blocs
};

/// What cannot be decoded shows only once it is opened.
void ouvrirTout(AcDbDatabase& dessin, inventaireDessin& inventaire)
{
    AcDbDatabaseImpl& interieur = dessin.impl();
    const std::size_t nombre = interieur.file().records().size();
    for (std::size_t i = 0; i < nombre; ++i) {
        DxfRecord& record = interieur.file().records()[i];
        if (!interieur.holdsObject(record))
            continue;
        const AcDbObjectPointer<AcDbObject> objet(AcDbObjectId(stubOf(&record)));
        const bool inconnue =
            objet.object() && (objet->isKindOf(AcDbProxyEntity::desc()) || objet->isKindOf(AcDbProxyObject::desc()));
        if (inconnue)
            ++inventaire.autresClasses[interieur.typeName(record)];
    }
}

/// A header that was never computed holds a box turned inside out.
std::optional<AcDbExtents> etendueEntete(const AcDbDatabase& dessin)
{
    AcDbExtents etendue;
    if (etendue.set(dessin.extmin(), dessin.extmax()) != Acad::eOk)
        return std::nullopt;
    return etendue;
}

void listerTables(inventaireDessin& inventaire)
{
    if (!tablesPoints)
        return;
    for (int i = 0; i < tablesPoints->nbTables(); ++i) {
        const listePointsDuDessin* const table = tablesPoints->getTable(i);
        inventaire.tables.push_back(
            {utf8FromWide(table->getNomTable().GetString()), table->nbPoint(), i == tablesPoints->getCourante()});
    }
}

} // namespace

inventaireDessin inventorier(const Document& document, const std::string& fichier)
{
    AcDbDatabase& dessin = *document.database();
    const DxfFile& source = dessin.impl().file();
    inventaireDessin inventaire;
    inventaire.fichier = fichier;
    inventaire.version = source.form().version;
    inventaire.versionFichier = source.versionOnDisk();
    inventaire.binaire = source.form().binary;
    inventaire.encodage = source.form().encoding->name();
    inventaire.etendueEntete = etendueEntete(dessin);
    ouvrirTout(dessin, inventaire);
    recensement(dessin, inventaire).recenser();
    listerTables(inventaire);
    inventaire.nonDessinees = entitiesNotDrawn(dessin);
    for (const LayoutTab& onglet : paperLayouts(dessin))
        inventaire.presentations.push_back(utf8FromWide(onglet.name));
    inventaire.problemes = dessin.impl().problems().all();
    inventaire.sain = dessin.impl().problems().isSound();
    return inventaire;
}
