#include "db/fields/TableFields.h"
#include "dxf/DxfEncoding.h"

#include "dbdict.h"
#include "dbxrecrd.h"

namespace {

constexpr int nameCode = 3;
constexpr int softOwnerCode = 350;
constexpr int hardOwnerCode = 360;

} // namespace

void DxfFieldsOfDictionary::add(DxfClasses& classes)
{
    const DxfField::Read read = [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
        auto& dictionary = static_cast<AcDbDictionary&>(object);
        if (tag.code == nameCode) {
            AcDbDictionary::Entry entry{context.text(tag), 0, 0, {}};
            if (context.form.encoding->encode(entry.name) != dxfText(tag))
                entry.spelling = dxfText(tag);
            dictionary.add(std::move(entry));
            return true;
        }
        std::uint64_t handle = 0;
        if (!dxfHandle(tag, handle))
            return false;
        if (!dictionary.m_entries.empty()) {
            dictionary.m_entries.rbegin()->second.handle = handle;
            dictionary.m_entries.rbegin()->second.code = static_cast<Adesk::Int16>(tag.code);
        }
        return true;
    };
    // Entries whose objects are erased are left out.
    const DxfField::Write write = [](DxfWriteContext& context, const AcDbObject& object, int, int) {
        const auto& dictionary = static_cast<const AcDbDictionary&>(object);
        for (const auto& [order, entry] : dictionary.m_entries) {
            if (dictionary.isErased(entry))
                continue;
            if (entry.spelling.empty())
                context.out.text(nameCode, entry.name);
            else
                context.out.rawText(nameCode, entry.spelling);
            const int owned = dictionary.m_hardOwner ? hardOwnerCode : softOwnerCode;
            context.out.handle(entry.code ? entry.code : owned, entry.handle);
        }
    };
    const DxfField::Same same = [](const AcDbObject& a, const AcDbObject& b, int) {
        const auto& one = static_cast<const AcDbDictionary&>(a);
        const auto& other = static_cast<const AcDbDictionary&>(b);
        auto at = other.m_entries.begin();
        for (const auto& [order, entry] : one.m_entries) {
            if (one.isErased(entry))
                continue;
            if (at == other.m_entries.end() || entry.name != at->second.name || entry.handle != at->second.handle)
                return false;
            ++at;
        }
        return at == other.m_entries.end();
    };
    static const DxfSubclass dictionary(
        "AcDbDictionary", {integerField<&AcDbDictionary::m_hardOwner>(280),
                           integerField<&AcDbDictionary::m_cloning>(281, DxfWhen::always),
                           listField({nameCode, softOwnerCode, hardOwnerCode}, read, write, same, nullptr)});
    const auto create = []() -> AcDbObject* { return new AcDbDictionary; };
    classes.add({"DICTIONARY", AcDbDictionary::desc(), create, {&dictionary}});
    // Its default entry stays a tag that is not modelled.
    classes.add({"ACDBDICTIONARYWDFLT", AcDbDictionary::desc(), create, {&dictionary}});
}

void DxfFieldsOfXrecord::add(DxfClasses& classes)
{
    static const DxfSubclass xrecord("AcDbXrecord", {integerField<&AcDbXrecord::m_cloning>(280, DxfWhen::always)},
                                     true);
    classes.add({"XRECORD", AcDbXrecord::desc(), []() -> AcDbObject* { return new AcDbXrecord; }, {&xrecord}});
}
