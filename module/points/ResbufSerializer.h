#pragma once

#include "points/QuarvelSerializer.h"
#include "services/chaineResbuf.h"

#include "adsdef.h"

/// Items as a chain of result buffers, one group code a kind of item:
///   90   32-bit integer, marker; -9999999 for a null reference      330  object reference
///   70   16-bit integer                                             280  8-bit value
///   40   64-bit float                                               300  text
///   92   length of a block of bytes, followed by its 310 chunks of at most 127 bytes
///   91   enumerated value
/// A marker and an integer are the same thing here, and a marker is never consumed by a look at it.
/// A read that meets another group code leaves the position on it.
class ResbufSerializer final : public QuarvelSerializer {
public:
    /// Takes the chain over (null: empty) and releases it at the end.
    explicit ResbufSerializer(resbuf* chaine = nullptr) : items(chaine) {}

    /// Takes over another chain; the present one is released.
    void prendre(resbuf* chaine);
    /// Head of the chain, which stays this serializer's.
    const resbuf* chaine() const { return items.tete(); }

    Adesk::IntPtr rewind() override;
    int peekInt() override;
    int expectMarker(int valeur) override;
    int writeMarker(int valeur) override;
    /// A reference to an erased object is written as null.
    int writeId(const AcDbObjectId& id) override;
    int writeShort(Adesk::Int16 valeur) override;
    int writeByte(Adesk::UInt8 valeur) override;
    int writeChar(Adesk::Int8 valeur) override;
    int writeDouble(double valeur) override;
    int writeBytes(const void* octets, int longueur) override;
    int writeInt(int valeur) override;
    int writeString(const CString& texte) override;
    int writeEnum(int valeur) override;
    /// A reference to nothing that is still there is read as null.
    int readId(AcDbObjectId& id) override;
    int readByte(Adesk::UInt8& valeur) override;
    int readChar(Adesk::Int8& valeur) override;
    int readDouble(double& valeur) override;
    int readBytes(void* octets, int longueur) override;
    int readInt(int& valeur) override;
    int readString(CString& texte) override;
    int readShort(Adesk::Int16& valeur) override;
    int readEnum(int& valeur) override;

private:
    const resbuf* suivant() const { return lu ? lu->rbnext : items.tete(); }
    /// The next item, consumed, when it has that group code; else null.
    const resbuf* consommer(int groupe);

    chaineResbuf items;
    const resbuf* lu = nullptr; // last item read; null at the start
};
