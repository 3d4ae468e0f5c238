#include "services/chaineResbuf.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "acutads.h"
#include "acutmem.h"

void chaineResbuf::prendre(resbuf* autre)
{
    if (m_tete)
        acutRelRb(m_tete);
    m_tete = autre;
    m_queue = nullptr;
}

resbuf* chaineResbuf::suivant(int type)
{
    resbuf* const item = acutNewRb(type);
    if (!item)
        return nullptr;
    if (!m_queue)
        for (m_queue = m_tete; m_queue && m_queue->rbnext;)
            m_queue = m_queue->rbnext;
    (m_queue ? m_queue->rbnext : m_tete) = item;
    return m_queue = item;
}

bool chaineResbuf::ajouter(int type, short valeur)
{
    resbuf* const item = suivant(type);
    return item && (item->resval.rint = valeur, true);
}

bool chaineResbuf::ajouter(int type, int valeur)
{
    resbuf* const item = suivant(type);
    return item && (item->resval.rlong = valeur, true);
}

bool chaineResbuf::ajouter(int type, double valeur)
{
    resbuf* const item = suivant(type);
    return item && (item->resval.rreal = valeur, true);
}

bool chaineResbuf::ajouter(int type, const wchar_t* texte)
{
    resbuf* const item = suivant(type);
    return item && acutNewString(texte, item->resval.rstring) == Acad::eOk;
}

bool chaineResbuf::ajouter(int type, const ads_point point)
{
    resbuf* const item = suivant(type);
    return item && (ads_point_set(point, item->resval.rpoint), true);
}

bool chaineResbuf::ajouterNom(int type, const ads_name nom)
{
    resbuf* const item = suivant(type);
    return item && (ads_name_set(nom, item->resval.rlname), true);
}

bool chaineResbuf::ajouterOctets(int type, const char* octets, std::size_t taille)
{
    resbuf* const item = suivant(type);
    if (!item || acutNewBuffer(item->resval.rbinary.buf, taille) != Acad::eOk)
        return false;
    item->resval.rbinary.clen = static_cast<short>(taille);
    std::memcpy(item->resval.rbinary.buf, octets, taille);
    return true;
}
