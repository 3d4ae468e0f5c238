#pragma once

#include "adesk.h"
#include "afx.h"

class AcDbObjectId;

/// Where the point tables are written to and read from, item by item: a result-buffer chain (ResbufSerializer) or a
/// binary file (FileSerializer).
/// Writers append at the end; readers consume from a position that rewind() sets back to the first item.
/// Every operation answers 1 for success and 0 for failure unless it says otherwise; a failed read leaves its output
/// as it was.
/// The order of the virtual operations is part of the interface between modules: add none, move none. Serializers are
/// not destroyed through this class.
class QuarvelSerializer {
public:
    /// Back to the first item. @return the address of the head of the chain where there is one (0: empty chain).
    virtual Adesk::IntPtr rewind() = 0;
    /// The marker that comes next, not consumed; -1 when there is none.
    virtual int peekInt() = 0;
    /// Whether the marker `valeur` comes next. A file consumes it, a chain does not.
    virtual int expectMarker(int valeur) = 0;
    virtual int writeMarker(int valeur) = 0;
    virtual int writeId(const AcDbObjectId& id) = 0;
    virtual int writeShort(Adesk::Int16 valeur) = 0;
    virtual int writeByte(Adesk::UInt8 valeur) = 0;
    virtual int writeChar(Adesk::Int8 valeur) = 0;
    virtual int writeDouble(double valeur) = 0;
    virtual int writeBytes(const void* octets, int longueur) = 0;
    virtual int writeInt(int valeur) = 0;
    virtual int writeString(const CString& texte) = 0;
    virtual int writeEnum(int valeur) = 0;
    virtual int readId(AcDbObjectId& id) = 0;
    virtual int readByte(Adesk::UInt8& valeur) = 0;
    virtual int readChar(Adesk::Int8& valeur) = 0;
    virtual int readDouble(double& valeur) = 0;
    /// Exactly `longueur` bytes; on failure those already read stand in `octets`.
    virtual int readBytes(void* octets, int longueur) = 0;
    virtual int readInt(int& valeur) = 0;
    virtual int readString(CString& texte) = 0;
    virtual int readShort(Adesk::Int16& valeur) = 0;
    virtual int readEnum(int& valeur) = 0;

protected:
    QuarvelSerializer() = default;
    QuarvelSerializer(const QuarvelSerializer&) = delete;
    QuarvelSerializer& operator=(const QuarvelSerializer&) = delete;
    ~QuarvelSerializer() = default;
};
