#include "rangementModeles.h"

#include <memory>

#include "services/chaineResbuf.h"

#include "acutmem.h"
#include "dbads.h"
#include "dbdict.h"
#include "dbmain.h"
#include "dbxrecrd.h"

namespace {

constexpr wchar_t cleModeles[] = L"VELA_TERRAINS", cleChoisi[] = L"VELA_TERRAIN_COURANT";
constexpr int version = 1;

constexpr int codeTexte = 300, codePoint = 10, codeReel = 40, codeCourt = 70, codeEntier = 90, codeReference = 330;

// ---- the chain of a model

class ecriture {
public:
    explicit ecriture(const modeleRange& modele)
    {
        entier(version);
        semis(modele.semis);
        entier(static_cast<int>(modele.empreinte >> 32U));
        entier(static_cast<int>(modele.empreinte & 0xFFFFFFFFU));
        entier(static_cast<int>(modele.sources.tables.size()));
        for (const std::wstring& nom : modele.sources.tables)
            chaine.ajouter(codeTexte, nom.c_str());
        for (const auto* const ids : {&modele.sources.objets, &modele.sources.limites, &modele.sources.trous})
            references(*ids);
    }
    const resbuf& tete() const { return *chaine.tete(); }

private:
    void entier(int valeur) { chaine.ajouter(codeEntier, valeur); }
    void sommets(const std::vector<sommetSol>& liste)
    {
        entier(static_cast<int>(liste.size()));
        for (const sommetSol& s : liste) {
            const ads_point p{s.x, s.y, s.z};
            chaine.ajouter(codePoint, p);
        }
    }
    void semis(const semisTerrain& s)
    {
        chaine.ajouter(codeReel, s.areteMax);
        sommets(s.points);
        entier(static_cast<int>(s.lignes.size()));
        for (const semisTerrain::ligne& l : s.lignes) {
            chaine.ajouter(codeCourt, static_cast<short>(l.nature));
            sommets(l.sommets);
        }
    }
    void references(const std::vector<AcDbObjectId>& ids)
    {
        entier(static_cast<int>(ids.size()));
        for (const AcDbObjectId& id : ids) {
            ads_name nom{};
            if (acdbGetAdsName(nom, id) != Acad::eOk)
                ads_name_clear(nom);
            chaine.ajouterNom(codeReference, nom);
        }
    }

    chaineResbuf chaine;
};

class lecture {
public:
    explicit lecture(const resbuf* tete) : item(tete) {}

    std::optional<modeleRange> lire()
    {
        modeleRange modele;
        if (entier() != version)
            return std::nullopt;
        semis(modele.semis);
        modele.semis.areteMax = modele.sources.areteMax = areteMax;
        modele.empreinte = static_cast<std::uint64_t>(static_cast<std::uint32_t>(entier())) << 32U;
        modele.empreinte |= static_cast<std::uint32_t>(entier());
        for (int n = nombre(); n > 0 && bon; --n)
            if (const resbuf* const texte = prendre(codeTexte))
                modele.sources.tables.emplace_back(texte->resval.rstring);
        for (auto* const ids : {&modele.sources.objets, &modele.sources.limites, &modele.sources.trous})
            references(*ids);
        return bon ? std::optional(std::move(modele)) : std::nullopt;
    }

private:
    const resbuf* prendre(int code)
    {
        const resbuf* const pris = item;
        bon = bon && pris && pris->restype == code;
        if (!bon)
            return nullptr;
        item = pris->rbnext;
        return pris;
    }
    int entier()
    {
        const resbuf* const pris = prendre(codeEntier);
        return pris ? pris->resval.rlong : 0;
    }
    int nombre()
    {
        const int combien = entier();
        bon = bon && combien >= 0;
        return combien;
    }
    void sommets(std::vector<sommetSol>& liste)
    {
        for (int n = nombre(); n > 0 && bon; --n)
            if (const resbuf* const p = prendre(codePoint))
                liste.push_back({{p->resval.rpoint[0], p->resval.rpoint[1]}, p->resval.rpoint[2]});
    }
    void semis(semisTerrain& s)
    {
        const resbuf* const arete = prendre(codeReel);
        areteMax = arete ? arete->resval.rreal : 0.0;
        sommets(s.points);
        for (int n = nombre(); n > 0 && bon; --n) {
            const resbuf* const nature = prendre(codeCourt);
            bon = bon && nature->resval.rint >= 0 && nature->resval.rint <= 2;
            if (!bon)
                return;
            s.lignes.push_back({static_cast<semisTerrain::genre>(nature->resval.rint), {}});
            sommets(s.lignes.back().sommets);
        }
    }
    /// What was erased since stays, as a null id: the model shows that its sources changed.
    void references(std::vector<AcDbObjectId>& ids)
    {
        for (int n = nombre(); n > 0 && bon; --n)
            if (const resbuf* const reference = prendre(codeReference)) {
                AcDbObjectId id;
                if (ads_name_nil(reference->resval.rlname) ||
                    acdbGetObjectId(id, reference->resval.rlname) != Acad::eOk)
                    id.setNull();
                ids.push_back(id);
            }
    }

    const resbuf* item;
    bool bon = true;
    double areteMax = 0.0;
};

// ---- the drawing's dictionaries

/// An object of a dictionary, made when there is none. Null id when the drawing refused.
template <class Objet>
AcDbObjectId trouverOuFaire(AcDbObjectId idDictionnaire, const wchar_t* nom)
{
    AcDbObjectId id;
    {
        const AcDbObjectPointer<AcDbDictionary> dictionnaire(idDictionnaire);
        if (dictionnaire.openStatus() == Acad::eOk && dictionnaire->getAt(nom, id) == Acad::eOk && !id.isErased())
            return id;
    }
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(idDictionnaire, AcDb::kForWrite);
    auto objet = std::make_unique<Objet>();
    if (dictionnaire.openStatus() != Acad::eOk || dictionnaire->setAt(nom, objet.get(), id) != Acad::eOk)
        return {};
    objet.release()->close();
    return id;
}

AcDbObjectId trouver(AcDbObjectId idDictionnaire, const wchar_t* nom)
{
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(idDictionnaire);
    AcDbObjectId id;
    if (dictionnaire.openStatus() != Acad::eOk || dictionnaire->getAt(nom, id) != Acad::eOk || id.isErased())
        return {};
    return id;
}

AcDbObjectId idModeles(AcDbDatabase& dessin)
{
    return trouver(dessin.namedObjectsDictionaryId(), cleModeles);
}

} // namespace

modelesRanges modelesDuDessin(AcDbDatabase& dessin)
{
    modelesRanges modeles;
    const AcDbObjectId id = idModeles(dessin);
    if (id.isNull())
        return modeles;
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(id);
    if (dictionnaire.openStatus() != Acad::eOk)
        return modeles;
    const std::unique_ptr<AcDbDictionaryIterator> it(dictionnaire->newIterator());
    for (; !it->done(); it->next())
        modeles.emplace_back(it->name(), it->objectId());
    return modeles;
}

std::optional<modeleRange> lireModele(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbXrecord> enregistrement(id);
    resbuf* chaine = nullptr;
    if (enregistrement.openStatus() != Acad::eOk || enregistrement->rbChain(&chaine) != Acad::eOk)
        return std::nullopt;
    const chaineResbuf garde(chaine);
    return lecture(chaine).lire();
}

AcDbObjectId rangerModele(AcDbDatabase& dessin, const std::wstring& nom, const modeleRange& modele)
{
    const AcDbObjectId modeles = trouverOuFaire<AcDbDictionary>(dessin.namedObjectsDictionaryId(), cleModeles);
    if (modeles.isNull())
        return {};
    const AcDbObjectId id = trouverOuFaire<AcDbXrecord>(modeles, nom.c_str());
    const AcDbObjectPointer<AcDbXrecord> enregistrement(id, AcDb::kForWrite);
    if (enregistrement.openStatus() != Acad::eOk ||
        enregistrement->setFromRbChain(ecriture(modele).tete()) != Acad::eOk)
        return {};
    return id;
}

bool renommerModele(AcDbDatabase& dessin, const std::wstring& ancien, const std::wstring& nouveau)
{
    const AcDbObjectPointer<AcDbDictionary> modeles(idModeles(dessin), AcDb::kForWrite);
    return modeles.openStatus() == Acad::eOk && modeles->setName(ancien.c_str(), nouveau.c_str());
}

bool supprimerModele(AcDbDatabase& dessin, const std::wstring& nom)
{
    const AcDbObjectId id = trouver(idModeles(dessin), nom.c_str());
    const AcDbObjectPointer<AcDbXrecord> enregistrement(id, AcDb::kForWrite);
    return enregistrement.openStatus() == Acad::eOk && enregistrement->erase() == Acad::eOk;
}

AcDbObjectId modeleChoisi(AcDbDatabase& dessin)
{
    const AcDbObjectPointer<AcDbXrecord> enregistrement(trouver(dessin.namedObjectsDictionaryId(), cleChoisi));
    resbuf* chaine = nullptr;
    if (enregistrement.openStatus() != Acad::eOk || enregistrement->rbChain(&chaine) != Acad::eOk || !chaine)
        return {};
    const chaineResbuf garde(chaine);
    AcDbObjectId id;
    if (chaine->restype != codeReference || ads_name_nil(chaine->resval.rlname) ||
        acdbGetObjectId(id, chaine->resval.rlname) != Acad::eOk || id.isErased())
        return {};
    return id;
}

bool choisirModele(AcDbDatabase& dessin, AcDbObjectId id)
{
    ads_name nom{};
    if (acdbGetAdsName(nom, id) != Acad::eOk)
        return false;
    chaineResbuf chaine;
    chaine.ajouterNom(codeReference, nom);
    const AcDbObjectPointer<AcDbXrecord> enregistrement(
        trouverOuFaire<AcDbXrecord>(dessin.namedObjectsDictionaryId(), cleChoisi), AcDb::kForWrite);
    return enregistrement.openStatus() == Acad::eOk && enregistrement->setFromRbChain(*chaine.tete()) == Acad::eOk;
}

bool nomDeModele(const std::wstring& nom)
{
    constexpr std::size_t plusLong = 255;
    return !nom.empty() && nom.size() <= plusLong && nom.find_first_of(L"<>/\\\":;?*|,=`") == std::wstring::npos;
}
