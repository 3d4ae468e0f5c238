#pragma once

#include <string>
#include <vector>

#include "dbmain.h"

/// Symbol tables and their records. Names are told apart without regard to case, accents included.
/// A record removed from its table is an erased record.

class AcDbSymbolTableIterator;

class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);
    /// A new text for the caller (acutDelString).
    Acad::ErrorStatus getName(ACHAR*& name) const;
    /// Valid while the record is open.
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    /// eDuplicateRecordName, eInvalidSymbolTableName.
    Acad::ErrorStatus setName(const ACHAR* name);
    bool isDependent() const { return (m_flags & 16) != 0; }

protected:
    AcDbSymbolTableRecord() = default;
    AcDbSymbolTableRecord(const AcDbSymbolTableRecord&) = default;
    std::wstring m_name;
    Adesk::Int16 m_flags = 0;

private:
    friend struct DxfFieldsOfSymbolTables;
    friend class AcDbDatabaseImpl;
};

class AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErasedRecord = false) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    /// Adds a record and opens it for write. eDuplicateKey when the name is taken. A block named "*U" becomes
    /// anonymous: "*U" and a number.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    /// For the caller to delete.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipErased = true) const;

protected:
    AcDbSymbolTable() = default;
    AcDbSymbolTable(const AcDbSymbolTable&) = default;

private:
    friend struct DxfFieldsOfSymbolTables;
    friend class AcDbDatabaseImpl;
    Adesk::Int16 m_count = 0;
};

class AcDbSymbolTableIterator {
public:
    void start(bool atBeginning = true, bool skipErased = true);
    bool done() const;
    void step(bool backwards = false, bool skipErased = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead) const;
    template <class T>
    Acad::ErrorStatus getRecord(T*& record, AcDb::OpenMode mode = AcDb::kForRead) const
    {
        AcDbObjectId id;
        const Acad::ErrorStatus es = getRecordId(id);
        return es == Acad::eOk ? acdbOpenObject(record, id, mode) : es;
    }

private:
    friend class AcDbSymbolTable;
    explicit AcDbSymbolTableIterator(std::vector<AcDbObjectId> ids) : m_ids(std::move(ids)) {}
    void settle(bool skipErased, int direction);
    std::vector<AcDbObjectId> m_ids;
    std::ptrdiff_t m_at = 0;
};

/// Declares one kind of symbol table: getAt also opens the record.
#define ACDB_SYMBOL_TABLE(NAME)                                                                                        \
    class NAME##Table : public AcDbSymbolTable {                                                                       \
    public:                                                                                                            \
        ACRX_DECLARE_MEMBERS(NAME##Table);                                                                             \
        NAME##Table() = default;                                                                                       \
        AcRxObject* clone() const override { return new NAME##Table(*this); }                                          \
        using AcDbSymbolTable::getAt;                                                                                  \
        Acad::ErrorStatus getAt(const ACHAR* name, NAME##TableRecord*& record, AcDb::OpenMode mode,                    \
                                bool openErased = false) const                                                         \
        {                                                                                                              \
            AcDbObjectId id;                                                                                           \
            const Acad::ErrorStatus es = AcDbSymbolTable::getAt(name, id, openErased);                                 \
            return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : es;                                \
        }                                                                                                              \
    }

/// Colour of a layer or an entity, by index.
class AcCmColor {
public:
    Adesk::UInt16 colorIndex() const { return m_index; }
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index)
    {
        m_index = index;
        m_isByColor = false;
        return Acad::eOk;
    }
    /// Whether it is a true colour, which `red`, `green` and `blue` tell.
    bool isByColor() const { return m_isByColor; }
    Adesk::UInt8 red() const { return m_red; }
    Adesk::UInt8 green() const { return m_green; }
    Adesk::UInt8 blue() const { return m_blue; }
    Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
    {
        m_red = red;
        m_green = green;
        m_blue = blue;
        m_isByColor = true;
        return Acad::eOk;
    }

private:
    Adesk::UInt16 m_index = 256;
    Adesk::UInt8 m_red = 0, m_green = 0, m_blue = 0;
    bool m_isByColor = false;
};

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord() = default;
    AcRxObject* clone() const override { return new AcDbLayerTableRecord(*this); }
    AcCmColor color() const;
    void setColor(const AcCmColor& color);
    /// True colour 0xRRGGBB, or -1; setColor takes it away.
    Adesk::Int32 trueColor() const { return m_trueColor; }
    bool isOff() const { return m_color < 0; }
    void setIsOff(bool off);
    bool isFrozen() const { return (m_flags & 1) != 0; }
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isLocked() const { return (m_flags & 4) != 0; }
    void setIsLocked(bool locked);
    bool isPlottable() const { return m_plottable; }
    Acad::ErrorStatus setIsPlottable(bool plottable);
    AcDbObjectId linetypeObjectId() const;
    void setLinetypeObjectId(AcDbObjectId id);
    AcDb::LineWeight lineWeight() const { return static_cast<AcDb::LineWeight>(m_lineWeight); }
    void setLineWeight(AcDb::LineWeight weight);

protected:
    AcDbLayerTableRecord(const AcDbLayerTableRecord&) = default;

private:
    friend struct DxfFieldsOfSymbolTables;
    AcDbStub* m_linetype = nullptr;
    Adesk::Int32 m_trueColor = -1;
    Adesk::Int16 m_color = 7; // negative when the layer is off
    Adesk::Int16 m_lineWeight = -3;
    bool m_plottable = true;
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord() = default;
    AcRxObject* clone() const override { return new AcDbTextStyleTableRecord(*this); }
    double textSize() const { return m_textSize; }
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const { return m_xScale; }
    Acad::ErrorStatus setXScale(double scale);
    double obliquingAngle() const { return m_oblique; }
    Acad::ErrorStatus setObliquingAngle(double angle);
    Acad::ErrorStatus fileName(const ACHAR*& name) const;
    Acad::ErrorStatus setFileName(const ACHAR* name);
    bool isShapeFile() const { return (m_flags & 1) != 0; }

protected:
    AcDbTextStyleTableRecord(const AcDbTextStyleTableRecord&) = default;

private:
    friend struct DxfFieldsOfSymbolTables;
    double m_textSize = 0.0, m_xScale = 1.0, m_oblique = 0.0, m_priorSize = 2.5;
    Adesk::Int16 m_generation = 0;
    std::wstring m_fileName = L"txt", m_bigFontFileName;
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord() = default;
    AcRxObject* clone() const override { return new AcDbLinetypeTableRecord(*this); }
    Acad::ErrorStatus comments(const ACHAR*& text) const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    double patternLength() const { return m_patternLength; }
    int numDashes() const { return static_cast<int>(m_dashes.size()); }
    /// Positive: pen down; negative: pen up; 0: a dot.
    double dashLengthAt(int i) const;
    Acad::ErrorStatus setDashes(const std::vector<double>& lengths);

protected:
    AcDbLinetypeTableRecord(const AcDbLinetypeTableRecord&) = default;

private:
    friend struct DxfFieldsOfSymbolTables;
    std::wstring m_comments;
    double m_patternLength = 0.0;
    std::vector<double> m_dashes;
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord() = default;
    AcRxObject* clone() const override { return new AcDbRegAppTableRecord(*this); }

protected:
    AcDbRegAppTableRecord(const AcDbRegAppTableRecord&) = default;
};

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    AcDbDimStyleTableRecord() = default;
    AcRxObject* clone() const override { return new AcDbDimStyleTableRecord(*this); }

protected:
    AcDbDimStyleTableRecord(const AcDbDimStyleTableRecord&) = default;
};

/// What of a drawing is looked at. Made with `new` or on the stack and handed to acedSetCurrentView: views are not kept
/// in drawings here.
class AcDbAbstractViewTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbAbstractViewTableRecord);
    /// Middle of the view, in the plane seen from above.
    AcGePoint2d centerPoint() const { return m_center; }
    void setCenterPoint(const AcGePoint2d& center) { m_center = center; }
    /// In drawing units.
    double height() const { return m_height; }
    void setHeight(double height) { m_height = height; }
    double width() const { return m_width; }
    void setWidth(double width) { m_width = width; }
    AcGePoint3d target() const { return m_target; }
    void setTarget(const AcGePoint3d& target) { m_target = target; }
    /// From the target to the eye.
    AcGeVector3d viewDirection() const { return m_direction; }
    void setViewDirection(const AcGeVector3d& direction) { m_direction = direction; }

protected:
    AcDbAbstractViewTableRecord() = default;
    AcDbAbstractViewTableRecord(const AcDbAbstractViewTableRecord&) = default;

private:
    AcGePoint2d m_center;
    AcGePoint3d m_target;
    AcGeVector3d m_direction{0.0, 0.0, 1.0};
    double m_height = 1.0, m_width = 1.0;
};

class AcDbViewTableRecord : public AcDbAbstractViewTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
    AcDbViewTableRecord() = default;
    AcRxObject* clone() const override { return new AcDbViewTableRecord(*this); }

protected:
    AcDbViewTableRecord(const AcDbViewTableRecord&) = default;
};

class AcDbBlockTableRecordIterator;

/// A block definition: named, with a base point and entities in drawing order. Model and paper space are blocks too.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;
    AcRxObject* clone() const override { return new AcDbBlockTableRecord(*this); }

    /// The entity joins the block, gets an id and stays open for write. Without a layer of its own it takes the
    /// drawing's current one.
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    /// For the caller to delete.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
    bool isLayout() const;
    bool isAnonymous() const;
    bool hasAttributeDefinitions() const;
    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    /// What users wrote about the block; valid while the record is open.
    Acad::ErrorStatus comments(const ACHAR*& text) const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    /// References of this block in the whole drawing.
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly = true,
                                           bool forceValidity = false) const;

protected:
    AcDbBlockTableRecord(const AcDbBlockTableRecord&) = default;

private:
    friend struct DxfFieldsOfSymbolTables;
    friend class AcDbDatabaseImpl;
};

class AcDbBlockTableRecordIterator {
public:
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;

private:
    friend class AcDbBlockTableRecord;
    explicit AcDbBlockTableRecordIterator(const std::vector<AcDbStub*>& entities) : m_entities(&entities) {}
    void settle(bool skipDeleted, int direction);
    const std::vector<AcDbStub*>* m_entities; // the block's own list: adding while iterating is allowed
    std::ptrdiff_t m_at = 0;
};

ACDB_SYMBOL_TABLE(AcDbBlock);
ACDB_SYMBOL_TABLE(AcDbLayer);
ACDB_SYMBOL_TABLE(AcDbTextStyle);
ACDB_SYMBOL_TABLE(AcDbLinetype);
ACDB_SYMBOL_TABLE(AcDbRegApp);
ACDB_SYMBOL_TABLE(AcDbDimStyle);

constexpr const ACHAR* ACDB_MODEL_SPACE = L"*Model_Space";
constexpr const ACHAR* ACDB_PAPER_SPACE = L"*Paper_Space";
