#include "points/indexNoms.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <cwchar>

#include "services/codages.h"
#include "services/lettres.h"

namespace {

constexpr std::size_t tailleDepart = 64; // drawings may hold many small tables

} // namespace

cleNom::cleNom(std::string_view nom, std::string_view blancs)
{
    nom = sansBlancs(nom, blancs).substr(0, longueurMax);
    std::transform(nom.begin(), nom.end(), lettres.begin(), minuscule8);
}

std::optional<cleNom> cleNom::deTexte(const wchar_t* nom, std::string_view blancs)
{
    const auto estBlanc = [blancs](wchar_t c) { return c < 0x80 && blancs.find(static_cast<char>(c)) != blancs.npos; };
    const wchar_t* debut = nom ? nom : L"";
    const wchar_t* fin = debut + std::wcslen(debut);
    while (debut < fin && estBlanc(*debut))
        ++debut;
    while (debut < fin && estBlanc(fin[-1]))
        --fin;
    const auto longueur = static_cast<std::size_t>(fin - debut);
    if (longueur > longueurMax)
        return std::nullopt;

    bool entier = true;
    const std::string octets = versAnsi({debut, longueur}, &entier);
    return entier ? std::optional(cleNom(octets, {})) : std::nullopt;
}

std::uint32_t cleNom::hachage() const
{
    std::uint64_t debut = 0;
    std::uint32_t suite = 0;
    std::memcpy(&debut, lettres.data(), sizeof debut);
    std::memcpy(&suite, lettres.data() + sizeof debut, sizeof suite);
    // A product carries differences upwards only, and the last characters stand highest: "P0000001", "P0000002" differ
    // where the first one leaves the bits in use alone. Folded down and multiplied again they count as well.
    constexpr std::uint64_t facteur = 0x9E3779B97F4A7C15U;
    const std::uint64_t produit = (debut ^ std::rotl(std::uint64_t{suite}, 29)) * facteur;
    return static_cast<std::uint32_t>(((produit ^ (produit >> 32U)) * facteur) >> 32U);
}

std::size_t indexNoms::place(const cleNom& cle) const
{
    const std::size_t masque = table.size() - 1;
    std::size_t i = cle.hachage() & masque;
    while (table[i].position >= 0 && !(table[i].cle == cle))
        i = (i + 1) & masque;
    return i;
}

int indexNoms::chercher(const cleNom& cle) const
{
    return table.empty() ? -1 : table[place(cle)].position;
}

void indexNoms::poser(const cleNom& cle, int position)
{
    if (2 * (nombre + 1) > table.size())
        agrandir(std::max(tailleDepart, 2 * table.size()));
    entree& e = table[place(cle)];
    if (e.position < 0) {
        e.cle = cle;
        ++nombre;
    }
    e.position = position;
}

void indexNoms::retirer(const cleNom& cle)
{
    if (table.empty())
        return;
    std::size_t trou = place(cle);
    if (table[trou].position < 0)
        return;
    if (--nombre == 0)
        return vider();
    // Closes the gap: whoever was pushed past it by a collision moves back.
    const std::size_t masque = table.size() - 1;
    for (std::size_t i = (trou + 1) & masque; table[i].position >= 0; i = (i + 1) & masque) {
        const std::size_t voulue = table[i].cle.hachage() & masque;
        if (((i - voulue) & masque) >= ((i - trou) & masque)) {
            table[trou] = table[i];
            trou = i;
        }
    }
    table[trou].position = -1;
}

void indexNoms::vider()
{
    std::vector<entree>().swap(table);
    nombre = 0;
}

void indexNoms::prevoir(std::size_t combien)
{
    const std::size_t taille = std::bit_ceil(2 * combien);
    if (taille > std::max(tailleDepart, table.size()))
        agrandir(taille);
}

void indexNoms::agrandir(std::size_t taille)
{
    std::vector<entree> ancienne(taille);
    ancienne.swap(table);
    for (const entree& e : ancienne)
        if (e.position >= 0)
            table[place(e.cle)] = e;
}
