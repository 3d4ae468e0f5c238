#include "codification/dissocierBloc.h"

#include <memory>
#include <vector>

#include "codification/attributsBloc.h"

#include "dbsymtb.h"

namespace {

constexpr Adesk::UInt16 parBloc = 0; // colour of the reference

using entites = std::vector<std::unique_ptr<AcDbEntity>>;

/// The text of an attribute, or of a definition that is the same for all references.
std::unique_ptr<AcDbText> texteDe(const AcDbText& attribut)
{
    auto texte = std::make_unique<AcDbText>(attribut.position(), attribut.textStringConst(), attribut.textStyle(),
                                            attribut.height(), attribut.rotation());
    texte->setPropertiesFrom(&attribut);
    texte->setNormal(attribut.normal());
    texte->setPosition(attribut.position());
    texte->setWidthFactor(attribut.widthFactor());
    texte->setOblique(attribut.oblique());
    return texte;
}

/// @return false when the block cannot be taken apart.
bool parties(const AcDbBlockReference& reference, entites& trouvees)
{
    AcDbVoidPtrArray eclatees;
    if (reference.explode(eclatees) != Acad::eOk)
        return false;
    for (void* const partie : eclatees) {
        std::unique_ptr<AcDbEntity> eclatee(static_cast<AcDbEntity*>(partie));
        if (const auto* const constante = AcDbAttributeDefinition::cast(eclatee.get())) {
            if (constante->isInvisible() || *constante->textStringConst() == L'\0')
                continue;
            eclatee = texteDe(*constante);
        }
        trouvees.push_back(std::move(eclatee));
        AcDbEntity& entite = *trouvees.back();
        if (entite.layerId().isNull() || entite.layerId() == reference.database()->layerZero())
            entite.setLayer(reference.layerId());
        if (entite.colorIndex() == parBloc)
            entite.setColorIndex(reference.colorIndex());
    }
    pourChaqueAttribut(reference, AcDb::kForRead, [&](const AcDbAttribute& attribut) {
        if (!attribut.isInvisible() && !attribut.isConstant() && *attribut.textStringConst() != L'\0')
            trouvees.push_back(texteDe(attribut));
    });
    return true;
}

/// All of them or none.
bool ajouterTout(AcDbBlockTableRecord& espace, entites& nouvelles)
{
    std::vector<AcDbObjectId> ajoutees;
    for (std::unique_ptr<AcDbEntity>& entite : nouvelles) {
        AcDbObjectId id;
        if (espace.appendAcDbEntity(id, entite.get()) != Acad::eOk) {
            for (const AcDbObjectId& ajoutee : ajoutees)
                if (const AcDbObjectPointer<AcDbEntity> ouverte(ajoutee, AcDb::kForWrite, false, true);
                    ouverte.openStatus() == Acad::eOk)
                    ouverte->erase();
            return false;
        }
        entite.release()->close();
        ajoutees.push_back(id);
    }
    return true;
}

} // namespace

bool dissocierBloc(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
    entites trouvees;
    if (reference.openStatus() != Acad::eOk || !parties(*reference.object(), trouvees))
        return false;
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(reference->ownerId(), AcDb::kForWrite);
    if (espace.openStatus() != Acad::eOk)
        return false;
    return ajouterTout(*espace.object(), trouvees) && reference->erase() == Acad::eOk;
}
