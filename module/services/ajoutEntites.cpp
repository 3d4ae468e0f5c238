#include "services/ajoutEntites.h"

#include "dbapserv.h"

std::unique_ptr<AcDbText> texteCale(const AcGePoint3d& place, const std::wstring& texte, double hauteur,
                                    double rotation, calageTexte calage)
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    auto ligne =
        std::make_unique<AcDbText>(place, texte.c_str(), db ? db->textstyle() : AcDbObjectId(), hauteur, rotation);
    ligne->setDatabaseDefaults();
    if (calage == calageTexte::gauche)
        return ligne;
    ligne->setHorizontalMode(calage == calageTexte::droite ? AcDb::kTextRight : AcDb::kTextCenter);
    ligne->setVerticalMode(calage == calageTexte::droite ? AcDb::kTextBottom : AcDb::kTextVertMid);
    ligne->setAlignmentPoint(place);
    return ligne;
}

ajoutEntites::ajoutEntites()
{
    if (AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase())
        m_bloc.open(db->currentSpaceId(), AcDb::kForWrite);
}

ajoutEntites::ajoutEntites(const AcDbObjectId& bloc) : m_bloc(bloc, AcDb::kForWrite) {}

AcDbObjectId ajoutEntites::ajouter(std::unique_ptr<AcDbEntity> entite)
{
    AcDbObjectId id;
    if (!entite || m_bloc.openStatus() != Acad::eOk || m_bloc->appendAcDbEntity(id, entite.get()) != Acad::eOk)
        return {};
    entite.release()->close();
    return id;
}

AcDbObjectId ajoutEntites::ecrire(const AcGePoint3d& place, const std::wstring& texte, double hauteur, double rotation,
                                  calageTexte calage)
{
    return ajouter(texteCale(place, texte, hauteur, rotation, calage));
}
