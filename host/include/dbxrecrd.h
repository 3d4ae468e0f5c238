#pragma once

#include <string>

#include "dbmain.h"

/// Free data kept in the drawing, as a chain of result buffers.
/// The data stand in memory as the bytes of the drawing file; a chain is made when it is asked for, in one walk.
class AcDbXrecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord);
    AcDbXrecord() = default;
    AcRxObject* clone() const override { return new AcDbXrecord(*this); }

    /// The data as a chain for the caller to release; null when there are none.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* auxDb = nullptr) const;
    /// Replaces the data; the chain stays the caller's. eInvalidResBuf for an item that no drawing can hold, as a
    /// number that is not finite, and for the codes of comments (999) and of names of applications (1001).
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* auxDb = nullptr);
    Acad::ErrorStatus setEmpty();

    /// Whether references in the data are followed when the record is copied to another drawing.
    bool isXlateReferences() const { return m_translate; }
    void setXlateReferences(bool translate) { m_translate = translate; }
    AcDb::DuplicateRecordCloning mergeStyle() const { return static_cast<AcDb::DuplicateRecordCloning>(m_cloning); }
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

    /// The data as bytes when they were replaced since the drawing was read, else null. Needs a database.
    const std::string* replacedBytes() const;

protected:
    AcDbXrecord(const AcDbXrecord&) = default;

private:
    friend struct DxfFieldsOfXrecord;
    std::string_view dataBytes() const;

    /// Data set by setFromRbChain, as bytes in the drawing's form; null while those of the file stand.
    mutable std::shared_ptr<const std::string> m_bytes;
    /// The same set before the record joined a database, whose form is not known yet.
    mutable std::shared_ptr<const resbuf> m_chain;
    Adesk::Int16 m_cloning = 1;
    bool m_translate = true;
};
