#include "points/ResbufSerializer.h"

#include <algorithm>
#include <cstring>

#include "acutads.h"
#include "dbads.h"

namespace {

constexpr int groupeEntier = 90;
constexpr int groupeReference = 330;
constexpr int groupeCourt = 70;
constexpr int groupeOctet = 280;
constexpr int groupeReel = 40;
constexpr int groupeLongueur = 92;
constexpr int groupeMorceau = 310;
constexpr int groupeTexte = 300;
constexpr int groupeEnum = 91;

constexpr int referenceNulle = -9999999;
constexpr int longueurMorceau = 127; // the most that a binary result buffer holds

} // namespace

ResbufSerializer::~ResbufSerializer()
{
    prendre(nullptr);
}

void ResbufSerializer::prendre(resbuf* chaine)
{
    if (tete)
        acutRelRb(tete);
    tete = chaine;
    queue = nullptr;
    lu = nullptr;
}

const resbuf* ResbufSerializer::consommer(int groupe)
{
    const resbuf* const item = suivant();
    if (!item || item->restype != groupe)
        return nullptr;
    lu = item;
    return item;
}

resbuf* ResbufSerializer::ajouter(int groupe)
{
    resbuf* const item = acutNewRb(groupe);
    if (!item)
        return nullptr;
    if (!queue)
        for (queue = tete; queue && queue->rbnext;)
            queue = queue->rbnext;
    (queue ? queue->rbnext : tete) = item;
    return queue = item;
}

int ResbufSerializer::ajouterEntier(int groupe, int valeur)
{
    resbuf* const item = ajouter(groupe);
    return item ? (item->resval.rlong = valeur, 1) : 0;
}

int ResbufSerializer::ajouterCourt(int groupe, short valeur)
{
    resbuf* const item = ajouter(groupe);
    return item ? (item->resval.rint = valeur, 1) : 0;
}

Adesk::IntPtr ResbufSerializer::rewind()
{
    lu = nullptr;
    return reinterpret_cast<Adesk::IntPtr>(tete);
}

int ResbufSerializer::peekInt()
{
    const resbuf* const item = suivant();
    return item && item->restype == groupeEntier ? item->resval.rlong : -1;
}

int ResbufSerializer::expectMarker(int valeur)
{
    const resbuf* const item = suivant();
    // Intended: not consumed, unlike in a file; readers of stored drawings count on it.
    return item && item->restype == groupeEntier && item->resval.rlong == valeur;
}

int ResbufSerializer::writeMarker(int valeur)
{
    return writeInt(valeur);
}
int ResbufSerializer::writeInt(int valeur)
{
    return ajouterEntier(groupeEntier, valeur);
}
int ResbufSerializer::writeEnum(int valeur)
{
    return ajouterEntier(groupeEnum, valeur);
}
int ResbufSerializer::writeShort(Adesk::Int16 valeur)
{
    return ajouterCourt(groupeCourt, valeur);
}
int ResbufSerializer::writeByte(Adesk::UInt8 valeur)
{
    return ajouterCourt(groupeOctet, valeur);
}
int ResbufSerializer::writeChar(Adesk::Int8 valeur)
{
    return ajouterCourt(groupeOctet, valeur);
}

int ResbufSerializer::writeId(const AcDbObjectId& id)
{
    ads_name nom;
    if (id.isNull() || id.isErased() || acdbGetAdsName(nom, id) != Acad::eOk)
        return writeInt(referenceNulle);
    resbuf* const item = ajouter(groupeReference);
    if (!item)
        return 0;
    std::copy(std::begin(nom), std::end(nom), item->resval.rlname);
    return 1;
}

int ResbufSerializer::writeDouble(double valeur)
{
    resbuf* const item = ajouter(groupeReel);
    return item ? (item->resval.rreal = valeur, 1) : 0;
}

int ResbufSerializer::writeBytes(const void* octets, int longueur)
{
    if (longueur < 0 || !ajouterEntier(groupeLongueur, longueur))
        return 0;
    const char* source = static_cast<const char*>(octets);
    while (longueur > 0) {
        const int taille = std::min(longueur, longueurMorceau);
        resbuf* const item = ajouter(groupeMorceau);
        if (!item || acutNewBuffer(item->resval.rbinary.buf, static_cast<std::size_t>(taille)) != Acad::eOk)
            return 0;
        item->resval.rbinary.clen = static_cast<short>(taille);
        std::memcpy(item->resval.rbinary.buf, source, static_cast<std::size_t>(taille));
        source += taille;
        longueur -= taille;
    }
    return 1;
}

int ResbufSerializer::writeString(const CString& texte)
{
    resbuf* const item = ajouter(groupeTexte);
    return item && acutNewString(texte, item->resval.rstring) == Acad::eOk;
}

int ResbufSerializer::readId(AcDbObjectId& id)
{
    if (peekInt() == referenceNulle) {
        lu = suivant();
        id.setNull();
        return 1;
    }
    const resbuf* const item = consommer(groupeReference);
    if (!item)
        return 0;
    if (acdbGetObjectId(id, item->resval.rlname) != Acad::eOk)
        id.setNull();
    return 1;
}

int ResbufSerializer::readByte(Adesk::UInt8& valeur)
{
    const resbuf* const item = consommer(groupeOctet);
    return item ? (valeur = static_cast<Adesk::UInt8>(item->resval.rint), 1) : 0;
}

int ResbufSerializer::readChar(Adesk::Int8& valeur)
{
    const resbuf* const item = consommer(groupeOctet);
    return item ? (valeur = static_cast<Adesk::Int8>(item->resval.rint), 1) : 0;
}

int ResbufSerializer::readDouble(double& valeur)
{
    const resbuf* const item = consommer(groupeReel);
    return item ? (valeur = item->resval.rreal, 1) : 0;
}

int ResbufSerializer::readBytes(void* octets, int longueur)
{
    const resbuf* const annonce = suivant();
    if (!annonce || annonce->restype != groupeLongueur || annonce->resval.rlong != longueur || longueur < 0)
        return 0;
    lu = annonce;
    char* cible = static_cast<char*>(octets);
    while (longueur > 0) {
        const resbuf* const item = consommer(groupeMorceau);
        if (!item || item->resval.rbinary.clen <= 0)
            return 0;
        const int taille = std::min<int>(item->resval.rbinary.clen, longueur); // never past the caller's room
        std::memcpy(cible, item->resval.rbinary.buf, static_cast<std::size_t>(taille));
        cible += taille;
        longueur -= taille;
    }
    return 1;
}

int ResbufSerializer::readInt(int& valeur)
{
    const resbuf* const item = consommer(groupeEntier);
    return item ? (valeur = item->resval.rlong, 1) : 0;
}

int ResbufSerializer::readString(CString& texte)
{
    const resbuf* const item = consommer(groupeTexte);
    return item ? (texte = item->resval.rstring, 1) : 0;
}

int ResbufSerializer::readShort(Adesk::Int16& valeur)
{
    const resbuf* const item = consommer(groupeCourt);
    return item ? (valeur = item->resval.rint, 1) : 0;
}

int ResbufSerializer::readEnum(int& valeur)
{
    const resbuf* const item = consommer(groupeEnum);
    return item ? (valeur = item->resval.rlong, 1) : 0;
}
