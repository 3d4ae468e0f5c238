#include "services/espaceCourant.h"

#include "dbapserv.h"

std::unique_ptr<AcDbText> texteCale(const AcGePoint3d& place, const CString& texte, double hauteur, double rotation,
                                    calageTexte calage)
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    auto ligne = std::make_unique<AcDbText>(place, texte, db ? db->textstyle() : AcDbObjectId(), hauteur, rotation);
    ligne->setDatabaseDefaults();
    if (calage == calageTexte::gauche)
        return ligne;
    ligne->setHorizontalMode(calage == calageTexte::droite ? AcDb::kTextRight : AcDb::kTextCenter);
    ligne->setVerticalMode(calage == calageTexte::droite ? AcDb::kTextBottom : AcDb::kTextVertMid);
    ligne->setAlignmentPoint(place);
    return ligne;
}

espaceCourant::espaceCourant()
{
    if (AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase())
        m_espace.open(db->currentSpaceId(), AcDb::kForWrite);
}

AcDbObjectId espaceCourant::ajouter(std::unique_ptr<AcDbEntity> entite)
{
    AcDbObjectId id;
    if (!entite || m_espace.openStatus() != Acad::eOk || m_espace->appendAcDbEntity(id, entite.get()) != Acad::eOk)
        return {};
    entite.release()->close();
    return id;
}

AcDbObjectId espaceCourant::ecrire(const AcGePoint3d& place, const CString& texte, double hauteur, double rotation,
                                   calageTexte calage)
{
    return ajouter(texteCale(place, texte, hauteur, rotation, calage));
}
