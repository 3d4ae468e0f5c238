#include "points/memoireTable.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "points/journalProjet.h"
#include "points/listePointsDuDessin.h"

namespace {

constexpr int taillePage = 256;

bool memesBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// To the last bit of what is stored: what follows the zero of a name counts as well.
bool identiques(const pointDuDessin& a, const pointDuDessin& b)
{
    return memesBits(a.getX(), b.getX()) && memesBits(a.getY(), b.getY()) && memesBits(a.getZ(), b.getZ()) &&
           a.getCode() == b.getCode() && a.getId() == b.getId() &&
           std::memcmp(a.getNomPoint(), b.getNomPoint(), pointDuDessin::tailleNom) == 0;
}

} // namespace

std::size_t changementTable::octets() const
{
    return sizeof *this + points.capacity() * sizeof points[0] + queue.capacity() * sizeof queue[0];
}

memoireTable::memoireTable(journalProjet& leJournal, const listePointsDuDessin& laTable) :
    journal(leJournal),
    table(laTable)
{
    valider();
}

std::span<const pointDuDessin> memoireTable::points() const
{
    return {table.getData().GetData(), static_cast<std::size_t>(table.nbPoint())};
}

/// Those of a page that the table has now.
std::span<const pointDuDessin> memoireTable::pointsDePage(int numero) const
{
    const auto tous = points();
    const std::size_t debut = std::min(tous.size(), static_cast<std::size_t>(numero) * taillePage);
    return tous.subspan(debut, std::min<std::size_t>(taillePage, tous.size() - debut));
}

void memoireTable::avantDAjouter()
{
    journal.toucher();
}

void memoireTable::avantDeChanger(int position)
{
    journal.toucher();
    copier(position / taillePage);
}

void memoireTable::avantDeToutChanger()
{
    journal.toucher();
    copierTout();
}

void memoireTable::confier(int position)
{
    journal.confier(*this);
    oublierConfiesPerimes();
    tailleConfiee = table.nbPoint();
    copier(position / taillePage);
    confiees.insert(position / taillePage);
    dernierConfie = position;
}

/// Pointers end when the table grows or shrinks.
void memoireTable::oublierConfiesPerimes()
{
    if (tailleConfiee == table.nbPoint())
        return;
    confiees.clear();
    dernierConfie = -1;
}

void memoireTable::confierTout()
{
    journal.confier(*this);
    copierTout();
    toutConfie = true;
}

bool memoireTable::confieADiffere() const
{
    if (dernierConfie < 0)
        return false;
    const auto copie = copies.find(dernierConfie / taillePage);
    const auto rang = static_cast<std::size_t>(dernierConfie % taillePage);
    return copie != copies.end() && rang < copie->second.size() && dernierConfie < table.nbPoint() &&
           !identiques(copie->second[rang], points()[static_cast<std::size_t>(dernierConfie)]);
}

void memoireTable::copier(int numero)
{
    if (numero * taillePage >= nombre || copies.contains(numero))
        return; // what was added since is remembered by being beyond the end
    const auto tels = pointsDePage(numero);
    const auto anciens = std::min(tels.size(), static_cast<std::size_t>(nombre - numero * taillePage));
    copies.try_emplace(numero, tels.begin(), tels.begin() + static_cast<std::ptrdiff_t>(anciens));
}

void memoireTable::copierTout()
{
    for (int numero = 0; numero * taillePage < nombre; ++numero)
        copier(numero);
}

std::optional<changementTable> memoireTable::changement() const
{
    changementTable c{nom, nombre, {}, {}};
    const auto tels = points();
    for (const auto& [numero, anciens] : copies)
        for (std::size_t rang = 0; rang < anciens.size(); ++rang) {
            const std::size_t position = static_cast<std::size_t>(numero) * taillePage + rang;
            if (position >= tels.size())
                c.queue.push_back(anciens[rang]);
            else if (!identiques(anciens[rang], tels[position]))
                c.points.emplace_back(static_cast<int>(position), anciens[rang]);
        }
    if (c.points.empty() && nombre == table.nbPoint() && nom == table.getNomTable())
        return std::nullopt;
    c.points.shrink_to_fit();
    c.queue.shrink_to_fit();
    return c;
}

void memoireTable::valider()
{
    oublierConfiesPerimes();
    nombre = table.nbPoint();
    nom = table.getNomTable();
    if (!toutConfie)
        std::erase_if(copies, [this](const auto& copie) { return !confiees.contains(copie.first); });
    std::erase_if(copies, [this](const auto& copie) { return copie.first * taillePage >= nombre; });
    for (auto& [numero, anciens] : copies)
        if (const auto tels = pointsDePage(numero); !std::ranges::equal(anciens, tels, identiques))
            anciens.assign(tels.begin(), tels.end());
    for (const int numero : confiees)
        copier(numero); // those of points that came since were not
    if (toutConfie)
        copierTout();
}
