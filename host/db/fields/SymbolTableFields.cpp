#include "db/fields/TableFields.h"

#include "dbsymtb.h"

namespace {

/// The name that the TABLE record of a class bears; nothing else tells the tables apart.
template <class Table>
DxfField tableNameRow(NameKind kind)
{
    static const char* const name = tableName(kind);
    return {2,
            1,
            true,
            [](const DxfReadContext&, AcDbObject&, const DxfTag&, int) { return true; },
            [](DxfWriteContext& context, const AcDbObject&, int code, int) { context.out.rawText(code, name); },
            [](const AcDbObject&, const AcDbObject&, int) { return true; },
            {}};
}

} // namespace

void DxfFieldsOfSymbolTables::add(DxfClasses& classes)
{
    static const DxfSubclass table("AcDbSymbolTable", {integerField<&AcDbSymbolTable::m_count>(70, DxfWhen::always)});
    const auto addTable = [&]<class Table>(const Table*, NameKind kind) {
        static const DxfSubclass name("", {tableNameRow<Table>(kind)});
        classes.add(
            {"TABLE", Table::desc(), []() -> AcDbObject* { return new Table; }, {&name, &table}, tableName(kind)});
    };
    addTable(static_cast<AcDbBlockTable*>(nullptr), NameKind::block);
    addTable(static_cast<AcDbLayerTable*>(nullptr), NameKind::layer);
    addTable(static_cast<AcDbTextStyleTable*>(nullptr), NameKind::textStyle);
    addTable(static_cast<AcDbLinetypeTable*>(nullptr), NameKind::linetype);
    addTable(static_cast<AcDbRegAppTable*>(nullptr), NameKind::regApp);
    addTable(static_cast<AcDbDimStyleTable*>(nullptr), NameKind::dimStyle);

    static const DxfSubclass record("AcDbSymbolTableRecord", {});
    const auto named = [](std::vector<DxfField> fields) {
        fields.insert(fields.begin(), {textField<&AcDbSymbolTableRecord::m_name>(2, DxfWhen::always),
                                       integerField<&AcDbSymbolTableRecord::m_flags>(70, DxfWhen::always)});
        return fields;
    };
    static const DxfSubclass block("AcDbBlockTableRecord",
                                   {textField<&AcDbSymbolTableRecord::m_name>(2, DxfWhen::always)});
    static const DxfSubclass layer("AcDbLayerTableRecord",
                                   named({integerField<&AcDbLayerTableRecord::m_color>(62, DxfWhen::always),
                                          trueColorField<&AcDbLayerTableRecord::m_trueColor>(), layerLinetypeRow(),
                                          integerField<&AcDbLayerTableRecord::m_plottable>(290),
                                          integerField<&AcDbLayerTableRecord::m_lineWeight>(370, DxfWhen::always)}));
    static const DxfSubclass style(
        "AcDbTextStyleTableRecord",
        named({realField<&AcDbTextStyleTableRecord::m_textSize>(40, DxfWhen::always),
               realField<&AcDbTextStyleTableRecord::m_xScale>(41, DxfWhen::always),
               degreesField<&AcDbTextStyleTableRecord::m_oblique>(50, DxfWhen::always),
               integerField<&AcDbTextStyleTableRecord::m_generation>(71, DxfWhen::always),
               realField<&AcDbTextStyleTableRecord::m_priorSize>(42, DxfWhen::always),
               textField<&AcDbTextStyleTableRecord::m_fileName>(3, DxfWhen::always),
               textField<&AcDbTextStyleTableRecord::m_bigFontFileName>(4, DxfWhen::always)}));
    static const DxfSubclass linetype(
        "AcDbLinetypeTableRecord",
        named({textField<&AcDbLinetypeTableRecord::m_comments>(3, DxfWhen::always), linetypePatternRow()}));
    static const DxfSubclass application("AcDbRegAppTableRecord", named({}));
    static const DxfSubclass dimStyle("AcDbDimStyleTableRecord", named({}));
    const auto addRecord = [&]<class Record>(const Record*, NameKind kind, const DxfSubclass& own) {
        classes.add({tableName(kind), Record::desc(), []() -> AcDbObject* { return new Record; }, {&record, &own}});
    };
    addRecord(static_cast<AcDbBlockTableRecord*>(nullptr), NameKind::block, block);
    addRecord(static_cast<AcDbLayerTableRecord*>(nullptr), NameKind::layer, layer);
    addRecord(static_cast<AcDbTextStyleTableRecord*>(nullptr), NameKind::textStyle, style);
    addRecord(static_cast<AcDbLinetypeTableRecord*>(nullptr), NameKind::linetype, linetype);
    addRecord(static_cast<AcDbRegAppTableRecord*>(nullptr), NameKind::regApp, application);
    addRecord(static_cast<AcDbDimStyleTableRecord*>(nullptr), NameKind::dimStyle, dimStyle);
}

/// A layer without a linetype of its own has the continuous one; its tag is always written.
DxfField DxfFieldsOfSymbolTables::layerLinetypeRow()
{
    DxfField row = nameField<&AcDbLayerTableRecord::m_linetype, NameKind::linetype>(6, DxfWhen::always);
    row.write = [](DxfWriteContext& context, const AcDbObject& object, int code, int) {
        AcDbStub* linetype = static_cast<const AcDbLayerTableRecord&>(object).m_linetype;
        if (linetype)
            context.name(code, linetype);
        else
            context.out.text(code, L"Continuous");
    };
    return row;
}

/// Dashes: their count and total length follow from them.
DxfField DxfFieldsOfSymbolTables::linetypePatternRow()
{
    return listField(
        {73, 40, 49, 74, 72},
        [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
            auto& linetype = static_cast<AcDbLinetypeTableRecord&>(object);
            double value = 0.0;
            if (tag.code != 40 && tag.code != 49)
                return true;
            if (!dxfReal(context.form, tag, value))
                return false;
            if (tag.code == 40)
                linetype.m_patternLength = value;
            else
                linetype.m_dashes.push_back(value);
            return true;
        },
        [](DxfWriteContext& context, const AcDbObject& object, int, int) {
            const auto& linetype = static_cast<const AcDbLinetypeTableRecord&>(object);
            context.out.integer(72, 65);
            context.out.integer(73, linetype.numDashes());
            context.out.real(40, linetype.m_patternLength);
            for (double dash : linetype.m_dashes) {
                context.out.real(49, dash);
                context.out.integer(74, 0);
            }
        },
        [](const AcDbObject& a, const AcDbObject& b, int) {
            return static_cast<const AcDbLinetypeTableRecord&>(a).m_dashes ==
                   static_cast<const AcDbLinetypeTableRecord&>(b).m_dashes;
        },
        [](AcDbObject& object) { static_cast<AcDbLinetypeTableRecord&>(object).m_dashes.clear(); }, DxfWhen::always);
}
