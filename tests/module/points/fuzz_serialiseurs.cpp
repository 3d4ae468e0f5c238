// Any bytes as the stored form of a project, in both manners: as they stand in a file, and as lines that each make one
// item of a chain ("90 12": group code, a blank, the value). Every kind of item is asked for at every place; a project
// that a chain gave is the same once it went through a chain and through a file.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "points/FileSerializer.h"
#include "points/projetsTopo.h"
#include "points/ResbufSerializer.h"

#include "acutads.h"
#include "dbads.h"
#include "dbid.h"
#include "TestFolder.h"

namespace {

void exiger(bool vrai)
{
    if (!vrai)
        std::abort();
}

resbuf* item(int groupe, const std::string& valeur)
{
    const double nombre = std::strtod(valeur.c_str(), nullptr);
    const int entier = nombre > -2e9 && nombre < 2e9 ? static_cast<int>(nombre) : -1;
    resbuf* const neuf = acutNewRb(groupe);
    if (groupe == 300)
        acutNewString(CString(valeur.c_str()), neuf->resval.rstring);
    else if (groupe == 310) {
        const std::size_t taille = std::min<std::size_t>(valeur.size(), 127);
        acutNewBuffer(neuf->resval.rbinary.buf, taille);
        neuf->resval.rbinary.clen = static_cast<short>(taille);
        std::memcpy(neuf->resval.rbinary.buf, valeur.data(), taille);
    } else if (groupe == 40)
        neuf->resval.rreal = nombre;
    else if (groupe == 70 || groupe == 280)
        neuf->resval.rint = static_cast<short>(entier);
    else if (groupe == 330)
        neuf->resval.rlname[0] = entier; // of no object
    else
        neuf->resval.rlong = entier;
    return neuf;
}

resbuf* chaineDe(const std::string& lignes)
{
    std::istringstream flux(lignes);
    resbuf* tete = nullptr;
    resbuf** fin = &tete;
    for (std::string ligne; std::getline(flux, ligne);) {
        const int groupe = std::atoi(ligne.substr(0, 3).c_str());
        for (const int connu : {40, 70, 90, 91, 92, 280, 300, 310, 330})
            if (groupe == connu) {
                *fin = item(groupe, ligne.size() > 3 ? ligne.substr(ligne.find(' ') + 1) : std::string());
                fin = &(*fin)->rbnext;
            }
    }
    return tete;
}

/// Asks for items of every kind in turn, as often as the bytes say; markers and 8-bit values move a file on.
void lireTout(QuarvelSerializer& s, const std::string& ordres)
{
    s.rewind();
    for (const char ordre : ordres) {
        int entier = 0;
        double reel = 0.0;
        Adesk::Int16 court = 0;
        Adesk::Int8 signe = 0;
        Adesk::UInt8 octet = 0;
        CString texte;
        AcDbObjectId id;
        std::array<char, 300> bloc;
        s.peekInt();
        s.expectMarker(ordre);
        s.readInt(entier) || s.readDouble(reel) || s.readShort(court) || s.readEnum(entier) || s.readString(texte) ||
            s.readId(id) || s.readBytes(bloc.data(), static_cast<unsigned char>(ordre)) || s.readChar(signe) ||
            s.readByte(octet);
    }
}

class essai {
public:
    std::string enFichier(const projetsTopo& projet) const
    {
        FileSerializer s(chemin(), true);
        exiger(projet.SaveToXRecord(&s) && s.fermer());
        return dossier.read("essai.bin");
    }
    void deFichier(const std::string& octets, projetsTopo& projet) const
    {
        dossier.write("essai.bin", octets);
        FileSerializer s(chemin(), false);
        lireTout(s, octets);
        s.rewind();
        projet.GetFromXRecord(&s);
        exiger(projet.nbTables() > 0);
    }

private:
    CString chemin() const { return CString((dossier / "essai.bin").c_str()); }
    const TestFolder dossier;
};

/// Longer names do not come back from a file.
bool nomsCourts(const projetsTopo& projet)
{
    for (int i = 0; i < projet.nbTables(); ++i)
        if (projet.getTable(i)->getNomTable().GetLength() > 255)
            return false;
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille)
{
    static const essai fichier;
    const std::string octets(donnees, donnees + taille);
    projetsTopo abime;
    fichier.deFichier(octets, abime);

    ResbufSerializer chaine(chaineDe(octets));
    lireTout(chaine, octets);
    chaine.rewind();
    projetsTopo lu;
    if (!lu.GetFromXRecord(&chaine) || !nomsCourts(lu))
        return 0;
    ResbufSerializer seconde;
    projetsTopo parChaine, parFichier;
    exiger(lu.SaveToXRecord(&seconde) && parChaine.GetFromXRecord(&seconde));
    const std::string ecrit = fichier.enFichier(lu);
    exiger(fichier.enFichier(parChaine) == ecrit);
    fichier.deFichier(ecrit, parFichier);
    exiger(fichier.enFichier(parFichier) == ecrit);
    return 0;
}
