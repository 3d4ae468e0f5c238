#include "calculs/lignesFichier.h"

#include "services/codages.h"

lignesFichier::lignesFichier(std::string_view contenu) : m_reste(contenu)
{
    constexpr std::string_view marque = "\xEF\xBB\xBF";
    m_utf8 = m_reste.starts_with(marque);
    if (m_utf8)
        m_reste.remove_prefix(marque.size());
    else
        m_utf8 = sembleUtf8(m_reste);
}

bool lignesFichier::suivante(std::string_view& ligne)
{
    if (m_reste.empty())
        return false;
    ++m_numero;
    const std::size_t fin = m_reste.find('\n');
    ligne = m_reste.substr(0, fin);
    m_reste.remove_prefix(fin == std::string_view::npos ? m_reste.size() : fin + 1);
    if (ligne.ends_with('\r'))
        ligne.remove_suffix(1);
    return true;
}

std::wstring lignesFichier::texte(std::string_view octets) const
{
    return m_utf8 ? depuisUtf8(octets) : depuisAnsi(octets);
}
