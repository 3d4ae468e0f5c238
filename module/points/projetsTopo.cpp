#include "points/projetsTopo.h"

#include <algorithm>

#include "points/annulationDuDessin.h"
#include "points/journalProjet.h"
#include "points/QuarvelSerializer.h"

#include "acutads.h"

const wchar_t* const messageErreurEcriture = L"\t*** ERREUR ***";

namespace {

constexpr const wchar_t* nomParDefaut = L"LEVE";

bool estLeveVide(const std::unique_ptr<listePointsDuDessin>& table)
{
    return table->nbPoint() == 0 && table->getNomTable() == nomParDefaut;
}

} // namespace

projetsTopo::projetsTopo()
{
    reset();
}
projetsTopo::~projetsTopo()
{
    oublierAnnulation(*this);
}

void projetsTopo::reset()
{
    removeAll();
    creerTablePoints(nomParDefaut);
    courante = 0;
}

void projetsTopo::removeAll()
{
    annoncer();
    for (auto& table : tables)
        ecarter(std::move(table));
    tables.clear();
    courante = -1;
}

/// To be called before tables come or go.
void projetsTopo::annoncer() const
{
    if (journalProjet* const journal = journalProjet::de(*this))
        journal->toucher();
}

/// A table that leaves the project: undo may want it back.
void projetsTopo::ecarter(std::unique_ptr<listePointsDuDessin> table)
{
    if (journalProjet* const journal = journalProjet::de(*this))
        journal->garder(std::move(table));
}

listePointsDuDessin* projetsTopo::getTable(int i) const
{
    if (i < 0 || i >= nbTables())
        AfxThrowInvalidArgException();
    return tables[static_cast<std::size_t>(i)].get();
}

void projetsTopo::creerTablePoints(const wchar_t* nom)
{
    annoncer();
    tables.push_back(std::make_unique<listePointsDuDessin>());
    tables.back()->setNomTable(nom);
}

void projetsTopo::removeTablePoints(int i)
{
    if (nbTables() == 1 || i < 0 || i >= nbTables())
        return;
    annoncer();
    if (courante >= i)
        --courante;
    ecarter(std::move(tables[static_cast<std::size_t>(i)]));
    tables.erase(tables.begin() + i);
    courante = std::max(courante, 0);
}

listePointsDuDessin* projetsTopo::currTable()
{
    if (tables.empty()) {
        creerTablePoints(L"");
        courante = 0;
    }
    if (courante >= nbTables())
        courante = 0;
    return getTable(courante);
}

void projetsTopo::decalZ(const double& dz)
{
    const double decalage = dz;
    for (const auto& table : tables)
        table->decalZ(decalage);
}

void projetsTopo::notifyPositionPoint(const AcDbObjectId& id, const AcGePoint3d& position, int masque)
{
    for (const auto& table : tables)
        table->notifyPositionPoint(id, position, masque);
}

int projetsTopo::SaveToXRecord(QuarvelSerializer* s) const
{
    const int ecrit =
        s->writeInt(courante) && s->writeInt(nbTables()) &&
        std::all_of(tables.begin(), tables.end(), [s](const auto& table) { return table->saveToXRecord(s) != 0; });
    if (!ecrit)
        acutPrintf(messageErreurEcriture);
    return ecrit;
}

int projetsTopo::GetFromXRecord(QuarvelSerializer* s)
{
    s->rewind();
    removeAll();
    const int lu = lireTables(s);
    if (!lu || tables.empty()) {
        reset();
        return lu;
    }
    retirerLevesVides();
    return 1;
}

int projetsTopo::lireTables(QuarvelSerializer* s)
{
    int nombre = 0;
    if (!s->readInt(courante) || !s->readInt(nombre) || nombre < 0)
        return 0;
    for (int i = 0; i < nombre; ++i) {
        auto table = std::make_unique<listePointsDuDessin>();
        if (!table->GetFromXRecord(s))
            return 0;
        tables.push_back(std::move(table));
    }
    return 1;
}

void projetsTopo::retirerLevesVides()
{
    if (std::count_if(tables.begin(), tables.end(), estLeveVide) < 2) {
        if (courante < 0 || courante >= nbTables())
            courante = 0;
        return;
    }
    // Removed from the last to the first while two tables remain: the first stays only when all are such.
    const bool rienDAutre = std::all_of(tables.begin(), tables.end(), estLeveVide);
    const auto gardees = std::stable_partition(tables.begin() + (rienDAutre ? 1 : 0), tables.end(),
                                               [](const auto& table) { return !estLeveVide(table); });
    std::for_each(gardees, tables.end(), [this](auto& table) { ecarter(std::move(table)); });
    tables.erase(gardees, tables.end());
    courante = 0; // whichever was current
}
