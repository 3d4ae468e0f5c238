#include "points/journalProjet.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace {

std::unordered_map<const projetsTopo*, journalProjet*>& journaux()
{
    static std::unordered_map<const projetsTopo*, journalProjet*> parProjet;
    return parProjet;
}

} // namespace

std::size_t journalProjet::etape::octets() const
{
    std::size_t total = sizeof *this;
    for (const auto& [table, changement] : changements)
        total += changement.octets();
    for (const auto& table : gardees)
        total += sizeof *table + static_cast<std::size_t>(table->nbPoint()) * sizeof(pointDuDessin);
    return total;
}

journalProjet::journalProjet(projetsTopo& leProjet, dessinDuJournal& leDessin, std::size_t lePlafond) :
    projet(leProjet),
    dessin(leDessin),
    plafond(lePlafond)
{
    journaux()[&projet] = this;
    valider();
}

journalProjet::~journalProjet()
{
    for (const auto& table : projet.tables)
        table->memoire = nullptr;
    journaux().erase(&projet);
}

journalProjet* journalProjet::de(const projetsTopo& projet)
{
    const auto trouve = journaux().find(&projet);
    return trouve == journaux().end() ? nullptr : trouve->second;
}

/// One number is enough for a group that is known to go on, however often the drawing changes within it.
void journalProjet::noter()
{
    ecrit = true;
    limites = CAcadUndoGroup::limites();
    const int courant = dessin.groupe();
    if (ouverte != 0 && courant != 0 && courant == groupe)
        return;
    if (etape faite = difference(); ouverte != 0 || !faite.vide())
        poser(std::move(faite), ouverte != 0 ? ouverte : ++dernier);
    courante = projet.courante;
    groupe = courant;
    ++dernier;
    ouverte = dessin.ecrire(dernier) ? dernier : 0;
}

void journalProjet::dessinChange()
{
    ecrit = false;
    if (confiee && confiee->confieADiffere())
        toucher();
}

void journalProjet::garder(std::unique_ptr<listePointsDuDessin> table)
{
    sorties.push_back(std::move(table));
}

void journalProjet::clore()
{
    ecrit = false;
    etape faite = difference();
    if (ouverte == 0 && faite.vide())
        return;
    if (ouverte == 0) {
        if (!dessin.ecrire(++dernier))
            return; // next time
        ouverte = dernier;
    }
    poser(std::move(faite), ouverte);
}

bool journalProjet::aller(int numero)
{
    // Changes that no number was written for go with the group that came after them.
    if (etape faite = difference(); ouverte != 0 || !faite.vide())
        poser(std::move(faite), ouverte != 0 ? ouverte : ++dernier);
    ecrit = false;
    const auto apres = std::ranges::lower_bound(etapes, numero, {}, &etape::numero);
    const bool connu = numero == base || (apres != etapes.end() && apres->numero == numero);
    if (!connu && numero > base)
        return false;
    const std::size_t but = numero <= base ? 0 : static_cast<std::size_t>(apres - etapes.begin()) + 1;
    while (faites > but)
        echanger(etapes[--faites]);
    while (faites < but)
        echanger(etapes[faites++]);
    valider();
    return connu;
}

/// What the last step left, against what is there now.
journalProjet::etape journalProjet::difference() const
{
    etape e;
    for (listePointsDuDessin* const table : liste)
        if (auto changement = table->memoire->changement())
            e.changements.emplace_back(table, std::move(*changement));
    if (liste != ordreActuel()) {
        e.listeChange = true;
        e.liste = liste;
        e.courante = courante;
    }
    return e;
}

void journalProjet::poser(etape nouvelle, int numero)
{
    while (etapes.size() > faites) {
        octets -= etapes.back().octets();
        etapes.pop_back();
    }
    nouvelle.numero = numero;
    for (auto& table : sorties)
        if (std::ranges::find(liste, table.get()) != liste.end()) // not one that came and went meanwhile
            nouvelle.gardees.push_back(std::move(table));
    sorties.clear();
    octets += nouvelle.octets();
    etapes.push_back(std::move(nouvelle));
    ++faites;
    ouverte = 0;
    valider();
    oublierAnciennes();
}

void journalProjet::valider()
{
    confiee = nullptr;
    for (const auto& table : projet.tables) {
        if (table->memoire)
            table->memoire->valider();
        else
            table->memoire = std::make_unique<memoireTable>(*this, *table);
        if (table->memoire->aDesConfies())
            confiee = table->memoire.get();
    }
    liste = ordreActuel();
    courante = projet.courante;
}

/// The last one always stays.
void journalProjet::oublierAnciennes()
{
    while (octets > plafond && etapes.size() > 1) {
        octets -= etapes.front().octets();
        base = etapes.front().numero;
        etapes.pop_front();
        --faites;
    }
}

void journalProjet::echanger(etape& e)
{
    octets -= e.octets();
    for (auto& [table, changement] : e.changements)
        table->echanger(changement);
    if (e.listeChange)
        echangerListe(e);
    octets += e.octets();
}

void journalProjet::echangerListe(etape& e)
{
    ordre autre = ordreActuel();
    tables toutes = std::move(projet.tables);
    std::ranges::move(e.gardees, std::back_inserter(toutes));
    projet.tables.clear();
    for (listePointsDuDessin* const table : e.liste)
        projet.tables.push_back(
            std::move(*std::ranges::find(toutes, table, &std::unique_ptr<listePointsDuDessin>::get)));
    std::erase(toutes, nullptr);
    e.gardees = std::move(toutes);
    e.liste = std::move(autre);
    std::swap(e.courante, projet.courante);
}

journalProjet::ordre journalProjet::ordreActuel() const
{
    ordre o;
    for (const auto& table : projet.tables)
        o.push_back(table.get());
    return o;
}
