#include "terrainsOuverts.h"

#include "sol/triangulation.h"

#include "acutads.h"
#include "dbapserv.h"
#include "recolteTerrain.h"

// ---- one model

void terrain::oublier()
{
    chemin.reset();
    sol.reset();
    lesIncidents.clear();
    construit = false;
    sources.clear();
    empreinteTables.reset();
    averti = false;
}

std::optional<modeleRange> terrain::contenu() const
{
    return existe() ? lireModele(idModele) : std::nullopt;
}

void terrain::construire()
{
    construit = true;
    const auto range = contenu();
    if (!range)
        return;
    solTriangule fait = trianguler(range->semis);
    sol = std::make_unique<maillageTerrain>(std::move(fait.maillage));
    chemin = std::make_unique<parcoursTerrain>(*sol);
    lesIncidents = std::move(fait.incidents);
}

const maillageTerrain* terrain::maillage()
{
    if (!existe())
        return nullptr;
    if (!construit)
        construire();
    return sol.get();
}

parcoursTerrain* terrain::parcours()
{
    return maillage() ? chemin.get() : nullptr;
}

bool terrain::perime()
{
    const std::uint64_t tables = empreinteDesTables();
    if (!existe() || empreinteTables == tables)
        return dernierPerime;
    const auto range = contenu();
    if (!range)
        return dernierPerime;
    sources.clear();
    for (const auto* const ids : {&range->sources.objets, &range->sources.limites, &range->sources.trous})
        for (const AcDbObjectId& id : *ids)
            sources.insert(id.asOldId());
    empreinteTables = tables;
    dernierPerime = empreinte(recolter(range->sources).semis) != range->empreinte;
    if (!dernierPerime)
        averti = false;
    return dernierPerime;
}

// ---- the models of a drawing

terrainsDuDessin::terrainsDuDessin(AcDbDatabase& leDessin) : dessin(leDessin)
{
    dessin.addReactor(this);
}

terrainsDuDessin::~terrainsDuDessin()
{
    dessin.removeReactor(this);
}

terrain* terrainsDuDessin::de(AcDbObjectId id)
{
    if (id.isNull())
        return nullptr;
    auto& place = terrains[id];
    if (!place)
        place = std::make_unique<terrain>(*this, id);
    return place.get();
}

const donneesTerrain& terrainsDuDessin::donnees()
{
    liste.modeles.clear();
    liste.courant = 0;
    const AcDbObjectId choisi = modeleChoisi(dessin);
    for (const auto& [nom, id] : modelesDuDessin(dessin)) {
        if (id == choisi)
            liste.courant = static_cast<int>(liste.modeles.size());
        liste.modeles.push_back(de(id));
    }
    return liste;
}

terrain* terrainsDuDessin::courant()
{
    const donneesTerrain& modeles = donnees();
    return modeles.modeles.empty() ? nullptr : modeles.modeles[static_cast<std::size_t>(modeles.courant)];
}

void terrainsDuDessin::avertir(terrain& modele, const std::wstring& nom)
{
    if (!modele.perime() || modele.averti)
        return;
    modele.averti = true;
    acutPrintf(L"\nLe mod\u00e8le de terrain \u00ab %s \u00bb n'est plus \u00e0 jour : ce dont il est fait a "
               L"chang\u00e9 (MNT, Actualiser).",
               nom.c_str());
}

/// A model's record changed, by a command or by undo; or something that a model was made from.
void terrainsDuDessin::noter(const AcDbObject& objet)
{
    if (terrains.empty())
        return;
    if (const auto modele = terrains.find(objet.objectId()); modele != terrains.end())
        modele->second->oublier();
    const std::int64_t id = objet.objectId().asOldId(), proprietaire = objet.ownerId().asOldId();
    for (const auto& [idModele, modele] : terrains)
        if (modele->sources.contains(id) || modele->sources.contains(proprietaire))
            modele->empreinteTables.reset();
}

void terrainsDuDessin::objectModified(const AcDbDatabase*, const AcDbObject* objet)
{
    noter(*objet);
}

void terrainsDuDessin::objectErased(const AcDbDatabase*, const AcDbObject* objet, Adesk::Boolean efface)
{
    noter(*objet);
    if (efface)
        return;
    // What comes back may be a source that was gone when the sources were read: then nobody knows it by its id.
    for (const auto& [idModele, modele] : terrains)
        if (modele->dernierPerime)
            modele->empreinteTables.reset();
}

// ---- the drawings

terrainsOuverts::terrainsOuverts()
{
    acDocManager->addReactor(this);
}

terrainsOuverts::~terrainsOuverts()
{
    acDocManager->removeReactor(this);
}

terrainsDuDessin* terrainsOuverts::courants()
{
    AcApDocument* const document = curDoc();
    AcDbDatabase* const dessin = document ? document->database() : nullptr;
    if (!dessin)
        return nullptr;
    auto& place = dessins[dessin];
    if (!place)
        place = std::make_unique<terrainsDuDessin>(*dessin);
    return place.get();
}

void terrainsOuverts::documentToBeDestroyed(AcApDocument* document)
{
    const auto ferme = dessins.find(document->database());
    if (ferme == dessins.end())
        return;
    for (auto& [id, modele] : ferme->second->terrains) {
        modele->oublier();
        modele->dessin = nullptr;
        disparus.push_back(std::move(modele));
    }
    dessins.erase(ferme);
}

namespace {

std::unique_ptr<terrainsOuverts> session;

} // namespace

terrainsOuverts* terrainsEnSession()
{
    return session.get();
}

void ouvrirTerrains()
{
    session = std::make_unique<terrainsOuverts>();
}

void fermerTerrains()
{
    session.reset();
}
