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

void ResbufSerializer::prendre(resbuf* chaine)
{
    items.prendre(chaine);
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

Adesk::IntPtr ResbufSerializer::rewind()
{
    lu = nullptr;
    return reinterpret_cast<Adesk::IntPtr>(items.tete());
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
    return items.ajouter(groupeEntier, valeur);
}
int ResbufSerializer::writeEnum(int valeur)
{
    return items.ajouter(groupeEnum, valeur);
}
int ResbufSerializer::writeShort(Adesk::Int16 valeur)
{
    return items.ajouter(groupeCourt, valeur);
}
int ResbufSerializer::writeByte(Adesk::UInt8 valeur)
{
    return items.ajouter(groupeOctet, static_cast<short>(valeur));
}
int ResbufSerializer::writeChar(Adesk::Int8 valeur)
{
    return items.ajouter(groupeOctet, static_cast<short>(valeur));
}

int ResbufSerializer::writeId(const AcDbObjectId& id)
{
    ads_name nom;
    if (id.isNull() || id.isErased() || acdbGetAdsName(nom, id) != Acad::eOk)
        return writeInt(referenceNulle);
    return items.ajouterNom(groupeReference, nom);
}

int ResbufSerializer::writeDouble(double valeur)
{
    return items.ajouter(groupeReel, valeur);
}

int ResbufSerializer::writeBytes(const void* octets, int longueur)
{
    if (longueur < 0 || !items.ajouter(groupeLongueur, longueur))
        return 0;
    const char* source = static_cast<const char*>(octets);
    while (longueur > 0) {
        const int taille = std::min(longueur, longueurMorceau);
        if (!items.ajouterOctets(groupeMorceau, source, static_cast<std::size_t>(taille)))
            return 0;
        source += taille;
        longueur -= taille;
    }
    return 1;
}

int ResbufSerializer::writeString(const CString& texte)
{
    return items.ajouter(groupeTexte, texte.GetString());
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
