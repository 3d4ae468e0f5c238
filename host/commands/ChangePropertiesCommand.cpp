#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/Prompt.h"
#include "commands/SymbolRecords.h"
#include "db/Colors.h"

#include "dbents.h"

/// Layer, colour and linetype of entities, many at once.

namespace {

using Change = std::function<Acad::ErrorStatus(AcDbEntity&)>;

/// Of a record that must be in the drawing; empty for Enter alone.
std::wstring askRecord(const std::wstring& prompt, AcDbObjectId table)
{
    const std::wstring typed = Prompt(prompt).name();
    if (typed.empty())
        return {};
    const AcDbObjectId record = recordNamed(table, typed);
    if (record.isNull())
        throw CommandFailed(command_texts::isNotInDrawing(L"", typed));
    return recordName(record);
}

Change askLayer()
{
    const std::wstring layer = askRecord(L"Entrez le nom du nouveau calque : ", drawing().layerTableId());
    if (layer.empty())
        return nullptr;
    return [layer](AcDbEntity& entity) { return entity.setLayer(layer.c_str()); };
}

Change askNewColor()
{
    const auto typed = Prompt(L"Entrez la nouvelle couleur (DuCalque, DuBloc, 1 à 255, ou son nom) : ").name();
    if (typed.empty())
        return nullptr;
    const auto color = colorNamed(typed);
    if (!color)
        throw CommandFailed(command_texts::colorWanted);
    return [color](AcDbEntity& entity) { return entity.setColorIndex(*color); };
}

Change askLinetype()
{
    const std::wstring linetype = askRecord(L"Entrez le nom du nouveau type de ligne : ", drawing().linetypeTableId());
    if (linetype.empty())
        return nullptr;
    return [linetype](AcDbEntity& entity) { return entity.setLinetype(linetype.c_str()); };
}

Change askLinetypeScale()
{
    const auto scale = Prompt(L"Entrez la nouvelle échelle du type de ligne : ").positive().real().value;
    if (!scale)
        return nullptr;
    return [scale](AcDbEntity& entity) { return entity.setLinetypeScale(*scale); };
}

constexpr std::pair<const wchar_t*, Change (*)()> kProperties[] = {
    {L"Color", askNewColor},
    {L"LAyer", askLayer},
    {L"LType", askLinetype},
    {L"ltScale", askLinetypeScale},
};

void changeAll(const std::vector<AcDbObjectId>& entities, const Change& what)
{
    for (const AcDbObjectId id : entities)
        if (what)
            change<AcDbEntity>(id, what);
}

} // namespace

void commands::changeProperties()
{
    const std::vector<AcDbObjectId> entities = askEditable();
    for (OptionsAsked options;;) {
        const std::wstring word = Prompt(L"Entrez la propriété à changer [COuleur/CAlque/Typeligne/Échelle] : ")
                                      .keywords(L"COuleur CAlque Typeligne Échelle _ Color LAyer LType ltScale")
                                      .keyword();
        if (word.empty())
            return options.end();
        for (const auto& property : kProperties)
            if (word == property.first)
                options.carryOut([&] { changeAll(entities, property.second()); });
    }
}
