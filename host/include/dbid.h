#pragma once

#include <cstdint>

#include "adesk.h"

class AcDbDatabase;
class AcDbHandle;
class AcRxClass;
struct AcDbStub;

/// Names an object of a database for as long as the database lives. 8 bytes, copied freely; not kept across sessions
/// (that is what handles are for).
class AcDbObjectId {
public:
    AcDbObjectId() = default;
    explicit AcDbObjectId(AcDbStub* stub) : m_stub(stub) {}

    static const AcDbObjectId kNull;

    bool isNull() const { return m_stub == nullptr; }
    void setNull() { m_stub = nullptr; }
    /// Whether it names an object of a database (which may be erased).
    bool isValid() const;
    bool isErased() const;
    AcDbHandle handle() const;
    AcDbDatabase* database() const;
    /// Class of the object, told without opening it.
    AcRxClass* objectClass() const;

    std::int64_t asOldId() const { return reinterpret_cast<std::int64_t>(m_stub); }
    AcDbObjectId& setFromOldId(std::int64_t oldId)
    {
        m_stub = reinterpret_cast<AcDbStub*>(oldId);
        return *this;
    }
    AcDbStub* stub() const { return m_stub; }

    bool operator==(const AcDbObjectId& other) const { return m_stub == other.m_stub; }
    bool operator!=(const AcDbObjectId& other) const { return m_stub != other.m_stub; }
    bool operator<(const AcDbObjectId& other) const { return m_stub < other.m_stub; }
    bool operator>(const AcDbObjectId& other) const { return m_stub > other.m_stub; }

private:
    AcDbStub* m_stub = nullptr;
};

static_assert(sizeof(AcDbObjectId) == 8);
