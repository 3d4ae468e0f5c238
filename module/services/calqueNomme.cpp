#include "services/calqueNomme.h"

#include <memory>

#include "dbsymtb.h"

AcDbObjectId calqueNomme(AcDbDatabase* dessin, const wchar_t* nom, Adesk::UInt16 couleur)
{
    AcDbLayerTable* calques = nullptr;
    if (!dessin || dessin->getLayerTable(calques, AcDb::kForRead) != Acad::eOk)
        return {};
    AcDbObjectId id;
    if (calques->getAt(nom, id) != Acad::eOk) {
        auto calque = std::make_unique<AcDbLayerTableRecord>();
        AcCmColor teinte;
        teinte.setColorIndex(couleur);
        calque->setColor(teinte);
        if (calque->setName(nom) == Acad::eOk && calques->upgradeOpen() == Acad::eOk &&
            calques->add(id, calque.get()) == Acad::eOk)
            calque.release()->close();
    }
    calques->close();
    return id;
}
