#include "calculs/reseau/lecteurXml.h"

#include <new>

#include <expat.h>

#include "services/codages.h"

namespace {

constexpr int profondeurMax = 64;

} // namespace

lecteurXml::lecteurXml() : m_analyseur(XML_ParserCreate(nullptr))
{
    if (!m_analyseur)
        throw std::bad_alloc();
    XML_SetUserData(m_analyseur, this);
    XML_SetElementHandler(m_analyseur, ouvrir, fermer);
    XML_SetCharacterDataHandler(m_analyseur, ajouter);
}

lecteurXml::~lecteurXml()
{
    XML_ParserFree(m_analyseur);
}

void lecteurXml::analyser(std::string_view contenu)
{
    constexpr std::size_t morceau = 1 << 20;
    bool juste = true;
    do {
        const std::string_view partie = contenu.substr(0, morceau);
        contenu.remove_prefix(partie.size());
        juste =
            XML_Parse(m_analyseur, partie.data(), static_cast<int>(partie.size()), contenu.empty()) == XML_STATUS_OK;
    } while (juste && !contenu.empty() && !m_arrete);
    if (!juste && !m_arrete)
        malForme(L"XML mal formé : " + depuisAnsi(XML_ErrorString(XML_GetErrorCode(m_analyseur))) + L".");
}

void lecteurXml::arreter()
{
    m_arrete = true;
    XML_StopParser(m_analyseur, XML_FALSE);
}

int lecteurXml::ligne() const
{
    return static_cast<int>(XML_GetCurrentLineNumber(m_analyseur));
}

void lecteurXml::ouvrir(void* moi, const char* nom, const char** paires)
{
    auto& l = *static_cast<lecteurXml*>(moi);
    if (l.m_arrete)
        return;
    if (++l.m_profondeur > profondeurMax)
        return l.malForme(L"éléments trop imbriqués.");
    attributs a;
    for (; paires[0]; paires += 2)
        a[paires[0]] = paires[1];
    l.m_texte.clear();
    l.m_garderTexte = false;
    l.debut(nom, a);
}

void lecteurXml::fermer(void* moi, const char* nom)
{
    auto& l = *static_cast<lecteurXml*>(moi);
    --l.m_profondeur;
    l.m_garderTexte = false;
    if (!l.m_arrete)
        l.fin(nom, l.m_texte);
}

void lecteurXml::ajouter(void* moi, const char* octets, int nombre)
{
    auto& l = *static_cast<lecteurXml*>(moi);
    if (l.m_garderTexte)
        l.m_texte.append(octets, static_cast<std::size_t>(nombre));
}
