#include "db/DatabaseImpl.h"
#include "db/fields/DxfObjectReader.h"
#include "db/ResbufTags.h"
#include "dxf/DxfCursor.h"
#include "dxf/DxfValue.h"

#include "acutmem.h"
#include "dbxrecrd.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, XRECORD)

namespace {
constexpr std::string_view marker = "AcDbXrecord";
constexpr int cloningCode = 280;
} // namespace

const std::string* AcDbXrecord::replacedBytes() const
{
    if (m_chain && !objectId().isNull()) {
        std::string bytes;
        DxfTagWriter out(AcDbDatabaseImpl::of(objectId().stub()).form(), bytes);
        writeChain(m_chain.get(), out); // every item was tried when it was set
        m_bytes = std::make_shared<const std::string>(std::move(bytes));
        m_chain = nullptr;
    }
    return m_bytes.get();
}

std::string_view AcDbXrecord::dataBytes() const
{
    if (const std::string* replaced = replacedBytes())
        return *replaced;
    const AcDbDatabaseImpl& database = AcDbDatabaseImpl::of(objectId().stub());
    const std::string_view bytes = database.bytes(*recordOf(objectId()));
    DxfCursor cursor(database.form(), bytes);
    DxfTag tag;
    bool inside = false;
    const char* start = nullptr;
    const char* end = bytes.data() + bytes.size();
    while (cursor.next(tag)) {
        if (tag.code == extendedDataCode) {
            end = tag.start;
            break;
        }
        if (!inside)
            inside = tag.code == 100 && dxfText(tag) == marker;
        else if (!start) {
            start = tag.code == cloningCode ? tag.next : tag.start; // the first one only: others are data
        }
    }
    return start && start < end ? std::string_view(start, static_cast<std::size_t>(end - start)) : std::string_view();
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const
{
    if (!chain)
        return Acad::eInvalidInput;
    assertReadEnabled();
    *chain = objectId().isNull() ? copiedChain(m_chain.get()).release()
                                 : chainOfTags(AcDbDatabaseImpl::of(objectId().stub()), dataBytes()).release();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase*)
{
    if (objectId().isNull()) {
        if (!isXrecordData(&chain))
            return Acad::eInvalidResBuf;
        m_chain.reset(copiedChain(&chain).release(), [](const resbuf* held) { acutRelRb(const_cast<resbuf*>(held)); });
        return Acad::eOk;
    }
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    std::string bytes;
    DxfTagWriter out(AcDbDatabaseImpl::of(objectId().stub()).form(), bytes);
    if (!hasXrecordCodes(&chain) || !writeChain(&chain, out))
        return Acad::eInvalidResBuf;
    assertWriteEnabled();
    m_bytes = std::make_shared<const std::string>(std::move(bytes));
    m_chain = nullptr;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setEmpty()
{
    assertWriteEnabled();
    m_bytes = std::make_shared<const std::string>();
    m_chain = nullptr;
    return Acad::eOk;
}

void AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    assertWriteEnabled();
    m_cloning = static_cast<Adesk::Int16>(style);
}
