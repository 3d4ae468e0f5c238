#include "codification/modelePoints.h"

#include <algorithm>
#include <map>
#include <memory>
#include <numeric>
#include <QHeaderView>
#include <QTableView>

#include "codification/tableCodification.h"
#include "points/listePointsDuDessin.h"
#include "services/codages.h"
#include "services/dialogueCellules.h"
#include "services/dialogueTableau.h"
#include "services/formatNombres.h"
#include "services/lettres.h"

namespace {

constexpr int decimales = 3;
constexpr int decimalesSansCode = 2;

std::string enMinuscules8(std::string_view octets)
{
    std::string texte(octets);
    std::ranges::transform(texte, texte.begin(), minuscule8);
    return texte;
}

QString texteNombre(double valeur, int n)
{
    return valeur == inconnu ? QString() : QString::fromStdWString(formaterFixe(valeur, n));
}

bool estChiffre(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes the digits that a text begins with, without zeros before them.
std::string_view chiffres(std::string_view& texte)
{
    const std::size_t fin = std::min(texte.find_first_not_of("0123456789"), texte.size());
    std::string_view lus = texte.substr(0, fin);
    texte.remove_prefix(fin);
    lus.remove_prefix(std::min(lus.find_first_not_of('0'), lus.size()));
    return lus;
}

/// @return negative, 0 or positive, as the first comes before, with or after the second
int comparerNoms(std::string_view a, std::string_view b)
{
    while (!a.empty() && !b.empty()) {
        if (estChiffre(a[0]) && estChiffre(b[0])) {
            const std::string_view na = chiffres(a), nb = chiffres(b);
            if (na.size() != nb.size())
                return na.size() < nb.size() ? -1 : 1;
            if (const int c = na.compare(nb); c != 0)
                return c;
            continue;
        }
        const auto ca = static_cast<unsigned char>(minuscule8(a[0])), cb = static_cast<unsigned char>(minuscule8(b[0]));
        if (ca != cb)
            return ca < cb ? -1 : 1;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.empty() ? (b.empty() ? 0 : -1) : 1;
}

double nombreDe(const pointDuDessin& point, int colonne)
{
    switch (colonne) {
    case modelePoints::x:
        return point.getX();
    case modelePoints::y:
        return point.getY();
    case modelePoints::z:
        return point.getZ();
    default:
        return point.getCode();
    }
}

/// Labels of the codes, as numbers in their order.
std::map<int, double> rangsDesLibelles(const tableCodification& codes)
{
    std::vector<int> premiers; // a look-up sees the first code of its number only
    for (int i = 0; i < codes.nombre(); ++i)
        if (codes.indexCode(codes[i].code) == i)
            premiers.push_back(i);
    std::ranges::stable_sort(premiers, [&](int a, int b) {
        return comparerTextes(texteQt(codes[a].libelle), texteQt(codes[b].libelle)) < 0;
    });
    std::map<int, double> rangs;
    for (std::size_t i = 0; i < premiers.size(); ++i)
        rangs[codes[premiers[i]].code] = static_cast<double>(i);
    return rangs;
}

} // namespace

modelePoints::modelePoints(const listePointsDuDessin& table, const tableCodification& codes, QStringList titres,
                           QObject* parent) :
    QAbstractTableModel(parent),
    m_table(table),
    m_codes(codes),
    m_titres(std::move(titres))
{
    choisir();
}

void modelePoints::recharger()
{
    refaire(false);
}

void modelePoints::filtrer(std::optional<int> parCode, const std::string& nom)
{
    m_code = parCode;
    m_nom = enMinuscules8(nom);
    refaire(true);
}

void modelePoints::sort(int colonneTri, Qt::SortOrder ordre)
{
    m_tri = colonneTri;
    m_ordre = ordre;
    refaire(true);
}

void modelePoints::refaire(bool memes)
{
    m_memesPoints = memes;
    beginResetModel();
    choisir();
    trier();
    endResetModel();
}

void modelePoints::choisir()
{
    m_positions.clear();
    for (int i = 0; i < m_table.nbPoint(); ++i) {
        const pointDuDessin& point = *m_table.getData(i);
        if (m_code && point.getCode() != *m_code)
            continue;
        if (m_nom.empty() || enMinuscules8(point.getNomPoint()).find(m_nom) != std::string::npos)
            m_positions.push_back(i);
    }
}

void modelePoints::trier()
{
    if (m_tri < 0 || m_tri > libelle)
        return;
    const bool montant = m_ordre == Qt::AscendingOrder;
    if (m_tri == numero) {
        std::ranges::stable_sort(m_positions, [&](int a, int b) {
            const int c = comparerNoms(m_table.getData(a)->getNomPoint(), m_table.getData(b)->getNomPoint());
            return montant ? c < 0 : c > 0;
        });
        return;
    }
    const std::map<int, double> rangs = m_tri == libelle ? rangsDesLibelles(m_codes) : std::map<int, double>();
    const auto cle = [&](int position) {
        const double valeur = nombreDe(*m_table.getData(position), m_tri);
        if (m_tri != libelle)
            return valeur;
        const auto rang = rangs.find(static_cast<int>(valeur));
        return rang == rangs.end() ? inconnu : rang->second;
    };
    std::vector<std::pair<double, int>> cles;
    cles.reserve(m_positions.size());
    for (const int position : m_positions)
        cles.emplace_back(cle(position), position);
    std::ranges::stable_sort(cles, [montant](const auto& a, const auto& b) {
        if (a.first == inconnu || b.first == inconnu)
            return a.first != inconnu;
        return montant ? a.first < b.first : a.first > b.first;
    });
    std::ranges::transform(cles, m_positions.begin(), [](const auto& c) { return c.second; });
}

int modelePoints::ligneNommee(const std::string& nom) const
{
    const std::string voulu = enMinuscules8(nom);
    int contenu = -1;
    for (int ligne = 0; ligne < rowCount(); ++ligne) {
        const std::size_t place = enMinuscules8(m_table.getData(position(ligne))->getNomPoint()).find(voulu);
        if (place == 0)
            return ligne;
        if (contenu < 0 && place != std::string::npos)
            contenu = ligne;
    }
    return contenu;
}

int modelePoints::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_positions.size());
}

int modelePoints::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_titres.size());
}

QString modelePoints::texte(int place, int colonneVoulue) const
{
    const pointDuDessin& point = *m_table.getData(place);
    const int index = colonneVoulue == z || colonneVoulue == libelle ? m_codes.indexCode(point.getCode()) : -1;
    switch (colonneVoulue) {
    case numero:
        return QString::fromStdWString(depuisAnsi(point.getNomPoint()));
    case z:
        return texteNombre(point.getZ(), index < 0 ? decimalesSansCode : m_codes[index].precisionAltitudes);
    case code:
        return QString::number(point.getCode());
    case libelle:
        return index < 0 ? QString() : QString::fromStdWString(m_codes[index].libelle);
    default:
        return texteNombre(nombreDe(point, colonneVoulue), decimales);
    }
}

QVariant modelePoints::data(const QModelIndex& index, int role) const
{
    // The table may have changed before it is read anew.
    if (!index.isValid() || index.row() >= rowCount() || position(index.row()) >= m_table.nbPoint())
        return {};
    if (role == Qt::DisplayRole)
        return texte(position(index.row()), index.column());
    if (role == Qt::TextAlignmentRole && index.column() != numero && index.column() != libelle)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant modelePoints::headerData(int section, Qt::Orientation sens, int role) const
{
    if (sens != Qt::Horizontal || role != Qt::DisplayRole || section >= m_titres.size())
        return QAbstractTableModel::headerData(section, sens, role);
    return m_titres[section];
}

namespace {

/// Selects again, as runs of rows, what was selected before the model was reset.
void choisirDeNouveau(QTableView& vue, const modelePoints& modele, const std::vector<bool>& choisies)
{
    QItemSelection selection;
    const int lignes = modele.rowCount(), derniereColonne = modele.columnCount() - 1;
    const auto choisie = [&](int ligne) { return choisies[static_cast<std::size_t>(modele.position(ligne))]; };
    for (int debut = 0; debut < lignes; ++debut) {
        if (!choisie(debut))
            continue;
        int fin = debut;
        while (fin + 1 < lignes && choisie(fin + 1))
            ++fin;
        selection.select(modele.index(debut, 0), modele.index(fin, derniereColonne));
        debut = fin;
    }
    vue.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

} // namespace

void preparerVue(QTableView& vue, modelePoints& modele)
{
    vue.setModel(&modele);
    vue.verticalHeader()->hide();
    vue.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    vue.verticalHeader()->setDefaultSectionSize(vue.fontMetrics().height() + 6);
    vue.setSelectionBehavior(QAbstractItemView::SelectRows);
    vue.setEditTriggers(QAbstractItemView::NoEditTriggers);
    vue.setWordWrap(false);
    ajusterColonnes(vue);
    QHeaderView* const titres = vue.horizontalHeader();
    QObject::connect(titres, &QHeaderView::sectionClicked, &modele, [titres, &modele] {
        titres->setSortIndicatorShown(true);
        modele.sort(titres->sortIndicatorSection(), titres->sortIndicatorOrder());
    });
    const auto choisies = std::make_shared<std::vector<bool>>();
    QObject::connect(&modele, &QAbstractItemModel::modelAboutToBeReset, &vue, [&vue, &modele, choisies] {
        choisies->clear();
        if (!modele.memesPoints())
            return;
        for (const int ligne : lignesChoisies(vue)) {
            const auto place = static_cast<std::size_t>(modele.position(ligne));
            choisies->resize(std::max(choisies->size(), place + 1));
            (*choisies)[place] = true;
        }
    });
    QObject::connect(&modele, &QAbstractItemModel::modelReset, &vue, [&vue, &modele, choisies] {
        if (choisies->empty())
            return;
        int derniere = -1;
        for (int ligne = 0; ligne < modele.rowCount(); ++ligne)
            derniere = std::max(derniere, modele.position(ligne));
        choisies->resize(std::max(choisies->size(), static_cast<std::size_t>(derniere + 1)));
        choisirDeNouveau(vue, modele, *choisies);
    });
}

std::vector<int> lignesChoisies(const QTableView& vue)
{
    std::vector<int> lignes;
    for (const QItemSelectionRange& plage : vue.selectionModel()->selection())
        for (int ligne = plage.top(); ligne <= plage.bottom(); ++ligne)
            lignes.push_back(ligne);
    std::ranges::sort(lignes);
    lignes.erase(std::unique(lignes.begin(), lignes.end()), lignes.end());
    return lignes;
}
