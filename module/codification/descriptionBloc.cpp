#include "codification/descriptionBloc.h"

#include <memory>
#include <optional>

#include "points/ResbufSerializer.h"
#include "services/donneesObjet.h"

#include "dbsymtb.h"

namespace {

constexpr const wchar_t* cleDescription = L"BLOCKINFO_QUARVEL";
constexpr int marqueDescription = 12744721;

std::optional<std::wstring> enregistree(const AcDbObjectId& objet)
{
    ResbufSerializer s(lireDonneesObjet(objet, cleDescription));
    int marque = 0;
    CString texte;
    if (!s.readInt(marque) || marque != marqueDescription || !s.readString(texte))
        return std::nullopt;
    return texte.GetString();
}

bool enregistrer(const AcDbObjectId& objet, const std::wstring& description)
{
    ResbufSerializer s;
    return s.writeInt(marqueDescription) && s.writeString(CString(description.c_str())) &&
           ecrireDonneesObjet(objet, cleDescription, *s.chaine());
}

template <typename Pour>
void pourChaqueEntite(const AcDbObjectId& bloc, Pour&& continuer)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> definition(bloc);
    AcDbBlockTableRecordIterator* entites = nullptr;
    if (definition.openStatus() != Acad::eOk || definition->newIterator(entites) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(entites);
    for (AcDbObjectId id; !it->done(); it->step())
        if (it->getEntityId(id) == Acad::eOk && !continuer(id))
            return;
}

std::wstring commentaires(const AcDbObjectId& bloc)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> definition(bloc);
    const wchar_t* texte = L"";
    if (definition.openStatus() == Acad::eOk)
        definition->comments(texte);
    return texte;
}

} // namespace

descriptionsBloc lireDescriptions(const AcDbObjectId& bloc)
{
    descriptionsBloc lues;
    const auto sienne = enregistree(bloc);
    lues.bloc = sienne ? *sienne : commentaires(bloc);
    pourChaqueEntite(bloc, [&](const AcDbObjectId& entite) {
        const auto copie = enregistree(entite);
        if (copie)
            lues.entite = *copie;
        return !copie;
    });
    return lues;
}

bool ecrireDescription(const AcDbObjectId& bloc, const std::wstring& description)
{
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> definition(bloc, AcDb::kForWrite);
        if (definition.openStatus() != Acad::eOk || definition->setComments(description.c_str()) != Acad::eOk)
            return false;
    }
    AcDbObjectId premiere;
    pourChaqueEntite(bloc, [&](const AcDbObjectId& entite) {
        premiere = entite;
        return false;
    });
    return enregistrer(bloc, description) && (premiere.isNull() || enregistrer(premiere, description));
}
