#include "points/FileSerializer.h"

#include <array>
#include <bit>
#include <cstring>

#include "services/codages.h"

#include "dbid.h"
#include "tchar.h"

static_assert(std::endian::native == std::endian::little, "payloads are written as they stand in memory");

namespace {

constexpr int longueurEcriteMax = 1023;
constexpr int longueurLueMax = 255;

} // namespace

FileSerializer::FileSerializer(const wchar_t* chemin, bool pourEcrire)
{
    fichier.reset(_wfopen(depuisAnsi(versAnsi(chemin ? chemin : L"")).c_str(), pourEcrire ? L"w+b" : L"rb"));
}

int FileSerializer::fermer()
{
    if (!fichier)
        return 0;
    const bool erreur = std::ferror(fichier.get()) != 0;
    return std::fclose(fichier.release()) == 0 && !erreur;
}

// A stream must be repositioned between a write and a read. Writes go to the end, reads where they had stopped.

bool FileSerializer::enLecture()
{
    if (!fichier)
        return false;
    if (!ecriture)
        return true;
    ecriture = false;
    return std::fseek(fichier.get(), positionLecture, SEEK_SET) == 0;
}

bool FileSerializer::enEcriture()
{
    if (!fichier)
        return false;
    if (ecriture)
        return true;
    positionLecture = std::ftell(fichier.get());
    ecriture = true;
    return std::fseek(fichier.get(), 0, SEEK_END) == 0;
}

bool FileSerializer::ecrire(const void* octets, std::size_t longueur)
{
    return enEcriture() && std::fwrite(octets, 1, longueur, fichier.get()) == longueur;
}

bool FileSerializer::lire(void* octets, std::size_t longueur)
{
    return enLecture() && std::fread(octets, 1, longueur, fichier.get()) == longueur;
}

bool FileSerializer::lireEtiquette(char etiquette)
{
    if (!enLecture())
        return false;
    const int lue = std::getc(fichier.get());
    if (lue == static_cast<unsigned char>(etiquette))
        return true;
    if (lue != EOF)
        std::ungetc(lue, fichier.get());
    return false;
}

template <class T>
int FileSerializer::ecrireEtiquete(char etiquette, T valeur)
{
    std::array<char, 1 + sizeof valeur> octets{etiquette};
    std::memcpy(octets.data() + 1, &valeur, sizeof valeur);
    return ecrire(octets.data(), octets.size());
}

template <class T>
int FileSerializer::lireEtiquete(char etiquette, T& valeur)
{
    T lue{};
    if (!lireEtiquette(etiquette) || !lire(&lue, sizeof lue))
        return 0;
    valeur = lue;
    return 1;
}

Adesk::IntPtr FileSerializer::rewind()
{
    ecriture = false;
    return fichier && std::fseek(fichier.get(), 0, SEEK_SET) == 0;
}

int FileSerializer::peekInt()
{
    if (!enLecture())
        return -1;
    const long position = std::ftell(fichier.get());
    int valeur = -1;
    const bool lue = lire(&valeur, sizeof valeur);
    std::fseek(fichier.get(), position, SEEK_SET);
    return lue ? valeur : -1;
}

int FileSerializer::expectMarker(int valeur)
{
    if (!enLecture())
        return 0;
    const long position = std::ftell(fichier.get());
    int lue = 0;
    if (lire(&lue, sizeof lue) && lue == valeur)
        return 1;
    std::fseek(fichier.get(), position, SEEK_SET);
    return 0;
}

int FileSerializer::writeMarker(int valeur)
{
    return ecrire(&valeur, sizeof valeur);
}
int FileSerializer::writeByte(Adesk::UInt8 valeur)
{
    return ecrire(&valeur, sizeof valeur);
}
int FileSerializer::writeChar(Adesk::Int8 valeur)
{
    return ecrire(&valeur, sizeof valeur);
}
int FileSerializer::writeInt(int valeur)
{
    return ecrireEtiquete('i', valeur);
}
int FileSerializer::writeDouble(double valeur)
{
    return ecrireEtiquete('d', valeur);
}
int FileSerializer::writeShort(Adesk::Int16 valeur)
{
    return ecrireEtiquete('s', valeur);
}
int FileSerializer::writeEnum(int valeur)
{
    return ecrire("e", 1) && writeInt(valeur);
}
int FileSerializer::writeId(const AcDbObjectId& id)
{
    return ecrireEtiquete('b', id);
}

int FileSerializer::writeBytes(const void* octets, int longueur)
{
    return longueur >= 0 && ecrire("b", 1) && ecrire(octets, static_cast<std::size_t>(longueur));
}

int FileSerializer::writeString(const CString& texte)
{
    const int longueur = texte.GetLength();
    if (longueur > longueurEcriteMax)
        AfxThrowInvalidArgException();
    std::array<char, longueurEcriteMax + 1> tampon;
    versAnsi(texte, tampon.data(), tampon.size());
    return ecrire("c", 1) && writeInt(longueur) && writeBytes(tampon.data(), longueur + 1);
}

int FileSerializer::readByte(Adesk::UInt8& valeur)
{
    Adesk::UInt8 lue = 0;
    return lire(&lue, sizeof lue) ? (valeur = lue, 1) : 0;
}

int FileSerializer::readChar(Adesk::Int8& valeur)
{
    Adesk::Int8 lue = 0;
    return lire(&lue, sizeof lue) ? (valeur = lue, 1) : 0;
}

int FileSerializer::readInt(int& valeur)
{
    return lireEtiquete('i', valeur);
}
int FileSerializer::readDouble(double& valeur)
{
    return lireEtiquete('d', valeur);
}
int FileSerializer::readShort(Adesk::Int16& valeur)
{
    return lireEtiquete('s', valeur);
}
int FileSerializer::readEnum(int& valeur)
{
    return lireEtiquette('e') && readInt(valeur);
}
int FileSerializer::readId(AcDbObjectId& id)
{
    return lireEtiquete('b', id);
}

int FileSerializer::readBytes(void* octets, int longueur)
{
    return longueur >= 0 && lireEtiquette('b') && lire(octets, static_cast<std::size_t>(longueur));
}

int FileSerializer::readString(CString& texte)
{
    int longueur = 0;
    if (!lireEtiquette('c') || !readInt(longueur) || longueur < 0 || longueur > longueurLueMax)
        return 0;
    std::array<char, longueurLueMax + 2> tampon{};
    if (!readBytes(tampon.data(), longueur + 1))
        return 0;
    const CString lu(tampon.data());
    if (lu.GetLength() != longueur)
        return 0;
    texte = lu;
    return 1;
}
