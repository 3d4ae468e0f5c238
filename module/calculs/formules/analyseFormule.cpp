#include "calculs/formules/automateLexical.h"
#include "calculs/formules/formule.h"
#include "services/reelDeTexte.h"

// Operands and operators wait on two stacks until what follows binds less tightly. An operator of the same rank waits
// as well: that is what nests to the right.

namespace {

constexpr char parenthese = '(';

int rang(char operateur)
{
    switch (operateur) {
    case '+':
    case '-':
        return 1;
    case '*':
    case '/':
        return 2;
    case '^':
        return 3;
    default:
        return 0; // none, or an open parenthesis
    }
}

genreNoeud genreDe(char operateur)
{
    switch (operateur) {
    case '+':
        return genreNoeud::addition;
    case '-':
        return genreNoeud::soustraction;
    case '*':
        return genreNoeud::multiplication;
    case '/':
        return genreNoeud::division;
    default:
        return genreNoeud::puissance;
    }
}

bool estLettre(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool commenceNombre(char c)
{
    return (c >= '0' && c <= '9') || c == '.';
}

double nombreDe(std::string_view element)
{
    return reelDeTexte(std::wstring(element.begin(), element.end()));
}

std::string sansBlancsDedans(std::string_view texte)
{
    std::string reste;
    for (const char c : texte)
        if (c != ' ' && c != '\t')
            reste += c;
    return reste;
}

} // namespace

class analyseFormule {
public:
    analyseFormule(formule& cible, std::string texte) : m_cible(cible), m_texte(std::move(texte)) {}

    bool executer()
    {
        const bool juste = lireTout();
        // What a fault leaves open keeps the operands read so far.
        while (!m_operateurs.empty())
            reduire();
        m_cible.m_racine = m_operandes.empty() ? noeudFormule::absent : m_operandes.back();
        return juste;
    }

private:
    char prochain() const { return m_position < m_texte.size() ? m_texte[m_position] : '\0'; }

    bool lireTout()
    {
        for (;;) {
            const lecture primaire = lirePrimaire();
            if (primaire == lecture::faute)
                return false;
            if (primaire == lecture::ouverte)
                continue;
            while (prochain() == ')' && m_ouvertes > 0)
                fermer();
            if (rang(prochain()) == 0)
                return m_position == m_texte.size() && m_ouvertes == 0;
            empiler(prochain());
            ++m_position;
        }
    }

    enum class lecture { operande, ouverte, faute };

    /// An operand, missing or not, onto the stack; or an open parenthesis, after which another primary is expected.
    lecture lirePrimaire()
    {
        bool negatif = false;
        for (; prochain() == '+' || prochain() == '-'; ++m_position)
            negatif ^= prochain() == '-';
        const char c = prochain();
        if (c == parenthese) {
            ++m_position;
            ++m_ouvertes;
            m_operateurs.push_back(parenthese);
            return lecture::ouverte;
        }
        if (!commenceNombre(c) && !estLettre(c)) {
            m_operandes.push_back(noeudFormule::absent);
            return lecture::operande;
        }
        const bool nombre = commenceNombre(c);
        const auto element = (nombre ? automateNombre() : automateIdentificateur()).lire(m_texte, m_position);
        if (!element.accepte) {
            m_operandes.push_back(noeudFormule::absent);
            return lecture::faute;
        }
        const std::string_view lu = std::string_view(m_texte).substr(m_position, element.longueur);
        m_position += element.longueur;
        noeudFormule noeud;
        if (nombre) {
            noeud.genre = genreNoeud::constante;
            noeud.valeur = negatif ? -nombreDe(lu) : nombreDe(lu);
        } else {
            noeud.genre = negatif ? genreNoeud::variableOpposee : genreNoeud::variable;
            noeud.nom = lu;
        }
        m_operandes.push_back(ajouter(std::move(noeud)));
        return lecture::operande;
    }

    void empiler(char operateur)
    {
        while (!m_operateurs.empty() && rang(m_operateurs.back()) > rang(operateur))
            reduire();
        m_operateurs.push_back(operateur);
    }

    void fermer()
    {
        while (m_operateurs.back() != parenthese)
            reduire();
        reduire();
        --m_ouvertes;
        ++m_position;
    }

    /// The operator on top takes its two operands; a parenthesis just goes.
    void reduire()
    {
        const char operateur = m_operateurs.back();
        m_operateurs.pop_back();
        if (operateur == parenthese)
            return;
        noeudFormule noeud;
        noeud.genre = genreDe(operateur);
        noeud.droite = m_operandes.back();
        m_operandes.pop_back();
        noeud.gauche = m_operandes.back();
        m_operandes.back() = ajouter(std::move(noeud));
    }

    std::int32_t ajouter(noeudFormule noeud)
    {
        m_cible.m_noeuds.push_back(std::move(noeud));
        return static_cast<std::int32_t>(m_cible.m_noeuds.size()) - 1;
    }

    formule& m_cible;
    std::string m_texte;
    std::size_t m_position = 0;
    int m_ouvertes = 0;
    std::vector<std::int32_t> m_operandes;
    std::vector<char> m_operateurs;
};

bool formule::analyser(std::string_view texte)
{
    m_noeuds.clear();
    return analyseFormule(*this, sansBlancsDedans(texte)).executer();
}
