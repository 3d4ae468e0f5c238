#include "points/projetDansDessin.h"

#include <cmath>
#include <memory>

#include "points/annulationDuDessin.h"
#include "points/ResbufSerializer.h"
#include "services/calqueNomme.h"

#include "acutads.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"

projetsTopo* tablesPoints = nullptr;
int sauverInfosTopo = 0;

namespace {

constexpr const wchar_t* cleProjet = L"QUARVEL4_VELA_DATA";

int enregistrees = 1;

AcDbDatabase* dessinDeTravail()
{
    return acdbHostApplicationServices()->workingDatabase();
}

/// Layer "0", made when the drawing lacks it; null when that cannot be.
AcDbObjectId calqueDuProjet(AcDbDatabase* db)
{
    constexpr Adesk::UInt16 rouge = 1;
    return calqueNomme(db, L"0", rouge);
}

/// The extension dictionary of the layer; null when there is none. With `creer` it is made first.
AcDbObjectId dictionnaireDuCalque(AcDbObjectId idCalque, bool creer)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> calque(idCalque, AcDb::kForRead);
    if (calque.openStatus() != Acad::eOk)
        return {};
    if (creer && calque->extensionDictionary().isNull() && calque->upgradeOpen() == Acad::eOk)
        calque->createExtensionDictionary();
    return calque->extensionDictionary();
}

/// The stored chain, for the caller to release; null when there is none.
resbuf* chaineStockee(AcDbDatabase* db)
{
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(dictionnaireDuCalque(calqueDuProjet(db), false));
    AcDbObjectId id;
    if (dictionnaire.openStatus() != Acad::eOk || dictionnaire->getAt(cleProjet, id) != Acad::eOk)
        return nullptr;
    const AcDbObjectPointer<AcDbXrecord> enregistrement(id);
    resbuf* chaine = nullptr;
    if (enregistrement.openStatus() == Acad::eOk)
        enregistrement->rbChain(&chaine, db);
    return chaine;
}

/// Points of siblings that set any number: what cannot be stored is stored as unknown, and told.
void signalerNonFinis(const projetsTopo& projet)
{
    int nombre = 0;
    for (int i = 0; i < projet.nbTables(); ++i) {
        const listePointsDuDessin& table = *projet.getTable(i);
        for (int j = 0; j < table.nbPoint(); ++j) {
            const AcGePoint3d place = table.getData(j)->getAs3dPnt();
            nombre += !(std::isfinite(place.x) && std::isfinite(place.y) && std::isfinite(place.z));
        }
    }
    if (nombre > 0)
        acutPrintf(L"\n%d point(s) avec une coordonnée qui n'est pas un nombre : elle est enregistrée comme "
                   L"inconnue.",
                   nombre);
}

/// Stores the chain, empty or not, as a new record in place of the earlier one, which stays if the data are refused.
bool stocker(AcDbDatabase* db, const resbuf* chaine)
{
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(dictionnaireDuCalque(calqueDuProjet(db), true),
                                                         AcDb::kForWrite);
    if (dictionnaire.openStatus() != Acad::eOk)
        return false;
    // In the drawing before it is filled: a record outside keeps a copy of the chain, which of a large survey is what
    // weighs most.
    auto nouveau = std::make_unique<AcDbXrecord>();
    AcDbObjectId id;
    if (db->addAcDbObject(id, nouveau.get()) != Acad::eOk)
        return false;
    AcDbXrecord* const enregistrement = nouveau.release();
    enregistrement->setXlateReferences(true);
    const bool stocke = (!chaine || enregistrement->setFromRbChain(*chaine, db) == Acad::eOk) &&
                        dictionnaire->setAt(cleProjet, enregistrement, id) == Acad::eOk;
    if (!stocke)
        enregistrement->erase();
    enregistrement->close();
    return stocke;
}

} // namespace

void setSrcInfosTopo(AcDbDatabase* db, projetsTopo* projet, int sauver, int lire)
{
    tablesPoints = projet;
    sauverInfosTopo = sauver;
    AcDbDatabase* const dessin = db ? db : dessinDeTravail();
    if (!tablesPoints)
        return;
    if (lire) {
        ResbufSerializer s(chaineStockee(dessin));
        acutPrintf(L"\nLecture des données Topo");
        tablesPoints->GetFromXRecord(&s);
    }
    if (dessin)
        suivreAnnulation(*dessin, *tablesPoints);
}

void purgeInfosTopo()
{
    AcDbDatabase* const db = dessinDeTravail();
    if (db && !stocker(db, nullptr))
        acutPrintf(messageErreurEcriture);
}

int infosTopoEnregistrees()
{
    return enregistrees;
}

void enregistrerInfosTopo()
{
    enregistrees = 1;
    AcDbDatabase* const db = dessinDeTravail();
    if (!tablesPoints || !db)
        return;
    ResbufSerializer s;
    if (sauverInfosTopo) {
        signalerNonFinis(*tablesPoints);
        enregistrees = tablesPoints->SaveToXRecord(&s); // one that fails says so; what it wrote is stored
    }
    const sauvegardeEnCours sauvegarde;
    if (!stocker(db, s.chaine())) {
        enregistrees = 0;
        acutPrintf(messageErreurEcriture);
        acutPrintf(L"\nLes tables de points n'ont pas pu être enregistrées dans le dessin.");
    }
}

listePointsDuDessin* tableCourante()
{
    return tablesPoints ? tablesPoints->currTable() : nullptr;
}
