#include "exchange/tableauCoordonnees.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "services/nombreFixe.h"

namespace {

// In text heights.
constexpr double hauteurLigne = 2.0, piedTexte = 0.5, margeCellule = 0.75, ecartBandes = 3.0;

/// Members of the settings, in the order of their text.
template <class Params>
auto cases(Params& p)
{
    return std::array{
        &p.numeros,       &p.x,      &p.y, &p.z, &p.code, &p.libelle, &p.encadrer, &p.separerEnTete, &p.separerColonnes,
        &p.separerLignes, &p.grouper};
}

struct colonneTable {
    std::wstring titre;
    std::wstring rangeeTable::*texte;
    bool aDroite;
    double largeur;
};

std::vector<colonneTable> colonnesVoulues(const paramsTable& p)
{
    std::vector<colonneTable> colonnes;
    const auto ajouter = [&colonnes](bool voulue, const wchar_t* titre, std::wstring rangeeTable::*texte,
                                     bool aDroite) {
        if (voulue)
            colonnes.push_back({titre, texte, aDroite, 0.0});
    };
    ajouter(p.numeros, L"N°", &rangeeTable::numero, false);
    ajouter(p.x, L"X", &rangeeTable::x, true);
    ajouter(p.y, L"Y", &rangeeTable::y, true);
    ajouter(p.z, L"Z", &rangeeTable::z, true);
    ajouter(p.code, L"Code", &rangeeTable::code, true);
    ajouter(p.libelle, L"Libellé", &rangeeTable::libelle, false);
    return colonnes;
}

/// A band: the titles, and as many points as stand under one another.
class bande {
public:
    bande(tableauCoordonnees& tableau, const std::vector<colonneTable>& colonnes, const paramsTable& p, double gauche) :
        m_tableau(tableau),
        m_colonnes(colonnes),
        m_params(p),
        m_gauche(gauche)
    {
    }

    void ecrire(const std::vector<rangeeTable>& rangees, std::size_t premiere, std::size_t derniere)
    {
        for (const colonneTable& c : m_colonnes)
            cellule(c, c.titre);
        ++m_lignes;
        for (std::size_t i = premiere; i < derniere; ++i, ++m_lignes)
            for (const colonneTable& c : m_colonnes)
                cellule(c, rangees[i].*c.texte);
        tracer();
    }

    double largeur() const
    {
        double somme = 0.0;
        for (const colonneTable& c : m_colonnes)
            somme += c.largeur;
        return somme;
    }
    double hauteur() const { return m_lignes * hauteurLigne * m_params.tailleTextes; }

private:
    double bas(int lignes) const { return -lignes * hauteurLigne * m_params.tailleTextes; }

    void cellule(const colonneTable& colonne, const std::wstring& texte)
    {
        double gauche = m_gauche;
        for (const colonneTable& c : m_colonnes) {
            if (&c == &colonne)
                break;
            gauche += c.largeur;
        }
        if (texte.empty())
            return;
        const double marge = margeCellule * m_params.tailleTextes;
        m_tableau.textes.push_back({colonne.aDroite ? gauche + colonne.largeur - marge : gauche + marge,
                                    bas(m_lignes + 1) + piedTexte * m_params.tailleTextes, colonne.aDroite, texte});
    }

    void horizontal(int lignes)
    {
        m_tableau.traits.push_back({m_gauche, bas(lignes), m_gauche + largeur(), bas(lignes)});
    }
    void vertical(double x) { m_tableau.traits.push_back({x, 0.0, x, -hauteur()}); }

    void tracer()
    {
        if (m_params.encadrer) {
            horizontal(0);
            horizontal(m_lignes);
            vertical(m_gauche);
            vertical(m_gauche + largeur());
        }
        for (int i = 1; i < m_lignes; ++i)
            if (m_params.separerLignes ? i > 1 || m_params.separerEnTete : i == 1 && m_params.separerEnTete)
                horizontal(i);
        if (!m_params.separerColonnes)
            return;
        double x = m_gauche;
        for (std::size_t i = 0; i + 1 < m_colonnes.size(); ++i)
            vertical(x += m_colonnes[i].largeur);
    }

    tableauCoordonnees& m_tableau;
    const std::vector<colonneTable>& m_colonnes;
    const paramsTable& m_params;
    double m_gauche;
    int m_lignes = 0;
};

} // namespace

std::string texteParams(const paramsTable& params)
{
    std::string texte = nombreFixe(params.tailleTextes, 6) + ' ' + std::to_string(params.lignesParColonne) + ' ';
    for (const bool* const coche : cases(params))
        texte += *coche ? '1' : '0';
    return texte;
}

paramsTable paramsDeTexte(const std::string& texte)
{
    paramsTable params;
    const char* const fin = texte.data() + texte.size();
    const auto taille = std::from_chars(texte.data(), fin, params.tailleTextes);
    const char* p = taille.ptr;
    if (taille.ec != std::errc() || p == fin || !std::isfinite(params.tailleTextes) || params.tailleTextes <= 0.0)
        return {};
    const auto lignes = std::from_chars(p + 1, fin, params.lignesParColonne);
    p = lignes.ptr;
    const auto coches = cases(params);
    if (lignes.ec != std::errc() || params.lignesParColonne < 1 ||
        fin - p != static_cast<std::ptrdiff_t>(coches.size()) + 1)
        return {};
    for (bool* const coche : coches)
        *coche = *++p == '1';
    return params;
}

tableauCoordonnees composerTableau(const std::vector<rangeeTable>& rangees, const paramsTable& params,
                                   const std::function<double(const std::wstring&)>& largeurTexte)
{
    tableauCoordonnees tableau;
    std::vector<colonneTable> colonnes = colonnesVoulues(params);
    if (colonnes.empty())
        return tableau;
    for (colonneTable& c : colonnes) {
        double largeur = largeurTexte(c.titre);
        for (const rangeeTable& rangee : rangees)
            largeur = std::max(largeur, largeurTexte(rangee.*c.texte));
        c.largeur = largeur + 2.0 * margeCellule * params.tailleTextes;
    }
    const auto parBande = static_cast<std::size_t>(std::max(params.lignesParColonne, 1));
    double gauche = 0.0;
    for (std::size_t premiere = 0; premiere == 0 || premiere < rangees.size(); premiere += parBande) {
        bande b(tableau, colonnes, params, gauche);
        b.ecrire(rangees, premiere, std::min(premiere + parBande, rangees.size()));
        tableau.largeur = gauche + b.largeur();
        tableau.hauteur = std::max(tableau.hauteur, b.hauteur());
        gauche = tableau.largeur + ecartBandes * params.tailleTextes;
    }
    return tableau;
}
