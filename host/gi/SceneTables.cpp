#include "gi/SceneTables.h"

#include <cmath>

#include "db/DatabaseImpl.h"

#include "dbsymtb.h"

namespace {

LayerState stateOf(const AcDbLayerTableRecord& layer)
{
    LayerState state;
    state.off = layer.isOff();
    state.frozen = layer.isFrozen();
    state.isZero = layer.objectId() == layer.database()->layerZero();
    state.color = static_cast<std::int16_t>(layer.color().colorIndex());
    state.trueColor = layer.trueColor();
    state.lineWeight = static_cast<std::int16_t>(layer.lineWeight());
    state.linetype = layer.linetypeObjectId().stub();
    return state;
}

} // namespace

Dashes usableDashes(std::vector<double> lengths)
{
    constexpr std::size_t mostElements = 1000; // a linetype has a dozen
    Dashes dashes;
    if (lengths.size() > mostElements)
        return dashes;
    bool gap = false;
    for (const double length : lengths) {
        dashes.total += std::fabs(length);
        gap = gap || length < 0.0;
    }
    if (!gap || !std::isfinite(dashes.total))
        return dashes;
    for (const double length : lengths)
        if (std::fabs(length) >= dashes.total * leastDash)
            dashes.lengths.push_back(length);
        else if (length >= 0.0)
            dashes.lengths.push_back(0.0);
    return dashes;
}

void SceneTables::forget()
{
    m_layers.clear();
    m_linetypes.clear();
    m_fonts.clear();
    m_lastRecord = nullptr;
    m_lastLayer = nullptr;
    m_settingsRead = false;
}

const LayerState& SceneTables::layer(AcDbStub* record)
{
    if (m_lastLayer && record == m_lastRecord)
        return *m_lastLayer;
    const auto [found, isNew] = m_layers.try_emplace(record);
    if (isNew) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer{AcDbObjectId(record)};
        if (layer.object())
            found->second = stateOf(*layer.object());
    }
    m_lastRecord = record;
    return *(m_lastLayer = &found->second);
}

const Dashes* SceneTables::linetype(AcDbStub* record)
{
    if (!record)
        return nullptr;
    const auto [found, isNew] = m_linetypes.try_emplace(record);
    if (isNew) {
        const AcDbObjectPointer<AcDbLinetypeTableRecord> linetype{AcDbObjectId(record)};
        std::vector<double> lengths;
        for (int i = 0; linetype.object() && i < linetype->numDashes(); ++i)
            lengths.push_back(linetype->dashLengthAt(i));
        found->second = usableDashes(std::move(lengths));
    }
    return found->second.lengths.empty() ? nullptr : &found->second;
}

bool SceneTables::isByLayer(AcDbStub* linetype)
{
    settings();
    return !linetype || linetype == m_byLayer;
}

bool SceneTables::isByBlock(AcDbStub* linetype)
{
    settings();
    return linetype && linetype == m_byBlock;
}

const std::wstring& SceneTables::font(AcDbStub* style)
{
    const auto [found, isNew] = m_fonts.try_emplace(style);
    if (isNew && style) {
        const AcDbObjectPointer<AcDbTextStyleTableRecord> record{AcDbObjectId(style)};
        const ACHAR* file = nullptr;
        if (record.object() && record->fileName(file) == Acad::eOk)
            found->second = file;
    }
    return found->second;
}

const SceneTables::Settings& SceneTables::settings()
{
    if (m_settingsRead)
        return m_settings;
    m_settingsRead = true;
    m_byLayer = m_database.byLayerLinetype().stub();
    m_byBlock = m_database.byBlockLinetype().stub();
    const HeaderVariables& header = m_database.impl().header();
    m_settings.linetypeScale = header.real("$LTSCALE", 1.0);
    m_settings.pointMode = static_cast<int>(header.integer("$PDMODE", 0));
    m_settings.pointSize = header.real("$PDSIZE", 0.0);
    m_settings.attributeMode = static_cast<int>(header.integer("$ATTMODE", 1));
    m_settings.fill = header.integer("$FILLMODE", 1) != 0;
    return m_settings;
}
