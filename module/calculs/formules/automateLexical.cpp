#include "calculs/formules/automateLexical.h"

#include <algorithm>

void automateLexical::ajouter(std::int32_t de, unsigned char bas, unsigned char haut, std::int32_t vers, bool final)
{
    m_transitions.push_back({de, bas, haut, vers});
    if (final)
        m_finaux.push_back(de);
}

automateLexical::element automateLexical::lire(std::string_view texte, std::size_t position) const
{
    std::int32_t etat = 0;
    std::size_t fin = position;
    for (; fin < texte.size(); ++fin) {
        auto c = static_cast<unsigned char>(texte[fin]);
        if (c >= 'a' && c <= 'z')
            c = static_cast<unsigned char>(c - 'a' + 'A');
        const auto t = std::ranges::find_if(m_transitions, [&](const transition& candidate) {
            return candidate.de == etat && candidate.bas <= c && c <= candidate.haut;
        });
        if (t == m_transitions.end())
            break;
        etat = t->vers;
    }
    return {fin - position, std::ranges::find(m_finaux, etat) != m_finaux.end()};
}

const automateLexical& automateNombre()
{
    static const automateLexical automate = [] {
        automateLexical a;
        a.ajouter(0, '-', '-', 1);
        a.ajouter(0, '.', '.', 8);
        a.ajouter(0, '0', '9', 2);
        a.ajouter(1, '+', '+', 1);
        a.ajouter(1, '-', '-', 1);
        a.ajouter(1, '.', '.', 8);
        a.ajouter(1, '0', '9', 2);
        a.ajouter(2, '0', '9', 2, true);
        a.ajouter(2, '.', '.', 3);
        a.ajouter(2, 'E', 'E', 5);
        a.ajouter(3, '0', '9', 4, true);
        a.ajouter(4, '0', '9', 4, true);
        a.ajouter(4, 'E', 'E', 5);
        a.ajouter(5, '+', '+', 6);
        a.ajouter(5, '-', '-', 6);
        a.ajouter(5, '0', '9', 7);
        a.ajouter(6, '0', '9', 7);
        a.ajouter(7, '0', '9', 7, true);
        a.ajouter(8, '0', '9', 4);
        return a;
    }();
    return automate;
}

const automateLexical& automateIdentificateur()
{
    static const automateLexical automate = [] {
        automateLexical a;
        a.ajouter(0, 'A', 'Z', 1);
        a.ajouter(1, 'A', 'Z', 1, true);
        a.ajouter(1, '0', '9', 1);
        return a;
    }();
    return automate;
}
