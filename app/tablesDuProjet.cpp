#include "tablesDuProjet.h"

#include <bit>
#include <string_view>

#include "calculs/placerBrouillons.h"
#include "platform/CodePage.h"
#include "points/projetDansDessin.h"

namespace {

/// A number that depends on all that was put in, and on the order.
class empreinte {
public:
    void ajouter(std::uint64_t mot) { valeur = (valeur ^ mot) * 0x100000001B3U + (valeur >> 29U); }
    void ajouter(double nombre) { ajouter(std::bit_cast<std::uint64_t>(nombre)); }
    template <class Caractere>
    void ajouter(std::basic_string_view<Caractere> texte)
    {
        for (const Caractere c : texte)
            ajouter(static_cast<std::uint64_t>(c));
        ajouter(std::uint64_t{texte.size()});
    }
    std::uint64_t resultat() const { return valeur; }

private:
    std::uint64_t valeur = 0xCBF29CE484222325U;
};

void ajouter(empreinte& e, const pointDuDessin& point)
{
    e.ajouter(point.getX());
    e.ajouter(point.getY());
    e.ajouter(point.getZ());
    e.ajouter(static_cast<std::uint64_t>(point.getCode()));
    e.ajouter(std::string_view(point.getNomPoint()));
    e.ajouter(static_cast<std::uint64_t>(point.getId().asOldId()));
}

/// Null outside the project.
const listePointsDuDessin* tableDe(int position)
{
    return tablesPoints && position >= 0 && position < tablesPoints->nbTables() ? tablesPoints->getTable(position)
                                                                                : nullptr;
}

} // namespace

QStringList tablesDuProjet::tables() const
{
    QStringList noms;
    for (int i = 0; i < (tablesPoints ? tablesPoints->nbTables() : 0); ++i)
        noms.append(QString::fromWCharArray(tablesPoints->getTable(i)->getNomTable()));
    return noms;
}

int tablesDuProjet::current() const
{
    return tablesPoints ? tablesPoints->getCourante() : -1;
}

void tablesDuProjet::setCurrent(int table)
{
    if (tableDe(table))
        tablesPoints->setCourante(table);
}

int tablesDuProjet::count(int table) const
{
    const listePointsDuDessin* const points = tableDe(table);
    return points ? points->nbPoint() : 0;
}

std::optional<ShownPoint> tablesDuProjet::point(int table, int place) const
{
    if (place < 0 || place >= count(table))
        return std::nullopt;
    const pointDuDessin& lu = *tableDe(table)->getData(place);
    ShownPoint montre{QString::fromStdWString(platform::wideFromAnsi(lu.getNomPoint())),
                      lu.getCode(),
                      lu.getX(),
                      lu.getY(),
                      std::nullopt,
                      {}};
    if (lu.altitudeConnue()) {
        CString altitude;
        lu.getZAsString(altitude);
        montre.z = lu.getZ();
        montre.altitude = QString::fromWCharArray(altitude);
    }
    return montre;
}

std::uint64_t tablesDuProjet::state() const
{
    empreinte e;
    e.ajouter(static_cast<std::uint64_t>(current()));
    for (int i = 0; i < (tablesPoints ? tablesPoints->nbTables() : 0); ++i) {
        const listePointsDuDessin& table = *tablesPoints->getTable(i);
        e.ajouter(std::wstring_view(table.getNomTable()));
        for (int j = 0; j < table.nbPoint(); ++j)
            ajouter(e, *table.getData(j));
        e.ajouter(static_cast<std::uint64_t>(table.nbPoint()));
    }
    return e.resultat();
}

std::uint64_t tablesDuProjet::drafts() const
{
    return etatBrouillons();
}
