#include "geometrie/axeEnregistre.h"

#include <cmath>

#include "services/chaineResbuf.h"
#include "services/donneesObjet.h"

namespace {

constexpr const wchar_t* cleAxe = L"VELA_AXE";
constexpr int version = 1;
constexpr int groupeEntier = 90, groupeReel = 40;
constexpr int elementsAuPlus = 1000000;

/// Reads a chain item by item; the first that is not what is wanted ends it.
class lecture {
public:
    explicit lecture(const resbuf* premier) : m_item(premier) {}

    int entier()
    {
        if (!m_item || m_item->restype != groupeEntier)
            return echouer(0);
        const int valeur = static_cast<int>(m_item->resval.rlong);
        m_item = m_item->rbnext;
        return valeur;
    }
    double reel()
    {
        if (!m_item || m_item->restype != groupeReel || !std::isfinite(m_item->resval.rreal))
            return echouer(0.0);
        const double valeur = m_item->resval.rreal;
        m_item = m_item->rbnext;
        return valeur;
    }
    int nombre()
    {
        const int n = entier();
        return n >= 0 && n <= elementsAuPlus ? n : echouer(0);
    }
    bool reussie() const { return m_reussie; }

private:
    template <typename Valeur>
    Valeur echouer(Valeur valeur)
    {
        m_reussie = false;
        m_item = nullptr;
        return valeur;
    }

    const resbuf* m_item;
    bool m_reussie = true;
};

} // namespace

bool enregistrerAxe(const AcDbObjectId& entite, const axeEnregistre& lAxe)
{
    chaineResbuf donnees;
    donnees.ajouter(groupeEntier, version);
    donnees.ajouter(groupeReel, lAxe.origine);
    donnees.ajouter(groupeEntier, static_cast<int>(lAxe.equations.size()));
    for (const equationAbscisse& e : lAxe.equations)
        for (const double valeur : {e.arriere, e.avant})
            donnees.ajouter(groupeReel, valeur);
    donnees.ajouter(groupeEntier, static_cast<int>(lAxe.ligne.elements().size()));
    for (const elementAxe& e : lAxe.ligne.elements())
        for (const double valeur :
             {e.debut.x, e.debut.y, e.direction.x, e.direction.y, e.longueur, e.courbureDebut, e.courbureFin})
            donnees.ajouter(groupeReel, valeur);
    return donnees.tete() && ecrireDonneesObjet(entite, cleAxe, *donnees.tete());
}

std::optional<axeEnregistre> lireAxeEnregistre(const AcDbObjectId& entite)
{
    const chaineResbuf donnees(lireDonneesObjet(entite, cleAxe));
    lecture l(donnees.tete());
    if (l.entier() != version)
        return std::nullopt;
    axeEnregistre lu;
    lu.origine = l.reel();
    for (int n = l.nombre(); n > 0 && l.reussie(); --n) {
        const double arriere = l.reel();
        lu.equations.push_back({arriere, l.reel()});
    }
    std::vector<elementAxe> elements;
    for (int n = l.nombre(); n > 0 && l.reussie(); --n) {
        elementAxe e;
        for (double* const valeur :
             {&e.debut.x, &e.debut.y, &e.direction.x, &e.direction.y, &e.longueur, &e.courbureDebut, &e.courbureFin})
            *valeur = l.reel();
        const double unite = norme(e.direction);
        if (!(unite > 0.5 && unite < 2.0))
            return std::nullopt;
        elements.push_back(e);
    }
    lu.ligne = axe(std::move(elements));
    return l.reussie() && !lu.ligne.vide() ? std::optional(std::move(lu)) : std::nullopt;
}
