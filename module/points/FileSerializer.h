#pragma once

#include <cstdio>

#include "points/QuarvelSerializer.h"
#include "services/fichierOuvert.h"

/// Items in a binary file without header, little-endian. A typed item is a one-byte tag and its payload:
///   i  32-bit integer          d  64-bit float          s  16-bit integer
///   b  raw bytes, their length not stored (an object reference is the 8 bytes of its id in memory)
///   c  text: an i item with its length L, a b item with its L bytes (Windows-1252) and a zero
///   e  enumerated value: an i item
/// Markers are 4 bytes and 8-bit values 1 byte, without tag.
/// A read that meets another tag, or another marker, leaves the position before it; one cut short by the end of the
/// file does not.
/// References mean nothing in another session: this form is for exchange within one.
class FileSerializer final : public QuarvelSerializer {
public:
    /// Opens the file for reading, or creates it empty for writing and reading back. A file that cannot be opened makes
    /// every operation fail. Characters of the path that Windows-1252 does not hold become "?".
    FileSerializer(const wchar_t* chemin, bool pourEcrire);

    /// Writes what is pending and closes. @return 1 when all that was written is on the disk.
    /// Destruction closes too, without an answer.
    int fermer();

    Adesk::IntPtr rewind() override;
    int peekInt() override;
    int expectMarker(int valeur) override;
    int writeMarker(int valeur) override;
    int writeId(const AcDbObjectId& id) override;
    int writeShort(Adesk::Int16 valeur) override;
    int writeByte(Adesk::UInt8 valeur) override;
    int writeChar(Adesk::Int8 valeur) override;
    int writeDouble(double valeur) override;
    int writeBytes(const void* octets, int longueur) override;
    int writeInt(int valeur) override;
    /// A text of more than 1023 characters raises the invalid-argument exception; nothing is written.
    int writeString(const CString& texte) override;
    int writeEnum(int valeur) override;
    int readId(AcDbObjectId& id) override;
    int readByte(Adesk::UInt8& valeur) override;
    int readChar(Adesk::Int8& valeur) override;
    int readDouble(double& valeur) override;
    int readBytes(void* octets, int longueur) override;
    int readInt(int& valeur) override;
    /// Fails on a text of more than 255 characters, and on one that holds a zero.
    int readString(CString& texte) override;
    int readShort(Adesk::Int16& valeur) override;
    int readEnum(int& valeur) override;

private:
    bool enLecture();
    bool enEcriture();
    bool ecrire(const void* octets, std::size_t longueur);
    bool lire(void* octets, std::size_t longueur);
    bool lireEtiquette(char etiquette);
    template <class T>
    int ecrireEtiquete(char etiquette, T valeur);
    template <class T>
    int lireEtiquete(char etiquette, T& valeur);

    fichierOuvert fichier;
    bool ecriture = false;    // what the stream was last used for
    long positionLecture = 0; // where reading resumes after writing
};
