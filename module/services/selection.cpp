#include "services/selection.h"

#include <array>
#include <optional>
#include <string>

#include "services/listeLisp.h"
#include "services/Uncopyable.h"

#include "aced.h"
#include "acutmem.h"
#include "afx.h"
#include "dbads.h"

namespace {

/// The set is released with it.
struct jeuOuvert : Uncopyable {
    ~jeuOuvert()
    {
        if (!ads_name_nil(nom))
            acedSSFree(nom);
    }
    ads_name nom{};
};

using itemsFiltre = std::vector<std::pair<short, const wchar_t*>>;

/// Nothing when the user cancelled.
std::optional<std::vector<AcDbObjectId>> choisirOuRenoncer(const wchar_t* mode, const void* textes,
                                                           const itemsFiltre& items)
{
    std::vector<std::wstring> motifs;
    std::vector<resbuf> filtre(items.size());
    motifs.reserve(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        motifs.emplace_back(items[i].second);
        filtre[i] = {i + 1 < items.size() ? &filtre[i + 1] : nullptr, items[i].first, {}};
        filtre[i].resval.rstring = motifs.back().data();
    }
    jeuOuvert jeu;
    const int statut = acedSSGet(mode, textes, nullptr, filtre.data(), jeu.nom);
    if (statut == RTCAN)
        return std::nullopt;
    return statut == RTNORM ? entitesDe(jeu.nom) : std::vector<AcDbObjectId>();
}

std::vector<AcDbObjectId> choisir(const wchar_t* mode, const void* textes, const itemsFiltre& items)
{
    return choisirOuRenoncer(mode, textes, items).value_or(std::vector<AcDbObjectId>());
}

constexpr std::array<const wchar_t*, 2> invitesSelection(const wchar_t* message)
{
    return {message, L"\nRetirer des objets"};
}

} // namespace

std::vector<AcDbObjectId> entitesDe(const ads_name jeu)
{
    Adesk::Int32 nombre = 0;
    std::vector<AcDbObjectId> ids;
    if (acedSSLength(jeu, &nombre) != RTNORM)
        return ids;
    ids.reserve(static_cast<std::size_t>(nombre));
    for (Adesk::Int32 i = 0; i < nombre; ++i) {
        ads_name nom;
        AcDbObjectId id;
        if (acedSSName(jeu, i, nom) == RTNORM && acdbGetObjectId(id, nom) == Acad::eOk)
            ids.push_back(id);
    }
    return ids;
}

std::vector<AcDbObjectId> demanderSelection(const wchar_t* message, const wchar_t* type)
{
    return demanderSelection(message, {{static_cast<short>(0), type}});
}

std::vector<AcDbObjectId> demanderSelection(const wchar_t* message, const itemsFiltre& filtre)
{
    return choisir(L"_:$", invitesSelection(message).data(), filtre);
}

bool redemanderSelection(const wchar_t* message, const wchar_t* type, std::vector<AcDbObjectId>& ids)
{
    auto choisis = choisirOuRenoncer(L"_:$", invitesSelection(message).data(), {{static_cast<short>(0), type}});
    if (choisis)
        ids = std::move(*choisis);
    return choisis.has_value();
}

std::vector<AcDbObjectId> selectionPrealable(const wchar_t* type)
{
    std::vector<AcDbObjectId> choisis = choisir(L"I", nullptr, {{static_cast<short>(0), type}});
    acedSSSetFirst(nullptr, nullptr); // it would answer the next request in the user's place
    return choisis;
}

AcDbObjectId designerEntite(const wchar_t* message)
{
    ads_name nom{};
    ads_point place{};
    AcDbObjectId id;
    if (acedEntSel(message, nom, place) != RTNORM || acdbGetObjectId(id, nom) != Acad::eOk)
        id.setNull();
    return id;
}

std::vector<AcDbObjectId> selectionDuDessin(const wchar_t* type)
{
    return choisir(L"X", nullptr, {{static_cast<short>(0), type}});
}

int rendreSelection(std::span<const AcDbObjectId> ids)
{
    ads_name jeu{};
    for (const AcDbObjectId& id : ids) {
        ads_name nom;
        if (!id.isErased() && acdbGetAdsName(nom, id) == Acad::eOk)
            acedSSAdd(nom, ads_name_nil(jeu) ? nullptr : jeu, jeu);
    }
    return ads_name_nil(jeu) ? rendreNil() : acedRetName(jeu, RTPICKS);
}

std::vector<AcDbObjectId> selectionAvecDonnees(const wchar_t* application)
{
    constexpr short codeApplication = 1001;
    return choisir(L"X", nullptr, {{codeApplication, application}});
}
