#include "ui/window/LayerList.h"

#include <algorithm>
#include <memory>
#include <QCollator>

#include "ui/window/DrawingEdit.h"

namespace {

QString nameOf(AcDbObjectId record)
{
    const AcDbObjectPointer<AcDbSymbolTableRecord> opened(record);
    const ACHAR* name = nullptr;
    if (opened.openStatus() != Acad::eOk || opened->getName(name) != Acad::eOk)
        return {};
    return QString::fromWCharArray(name);
}

LayerRow rowOf(AcDbObjectId id, AcDbObjectId current)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
    LayerRow row{id, nameOf(id), id == current};
    if (layer.openStatus() != Acad::eOk)
        return row;
    row.off = layer->isOff();
    row.frozen = layer->isFrozen();
    row.locked = layer->isLocked();
    row.color = layer->color().colorIndex();
    row.linetype = nameOf(layer->linetypeObjectId());
    return row;
}

QString reasonOf(Acad::ErrorStatus status)
{
    switch (status) {
    case Acad::eDuplicateRecordName:
    case Acad::eDuplicateKey:
        return QStringLiteral("un calque porte déjà ce nom.");
    case Acad::eInvalidSymbolTableName:
        return QStringLiteral("ce nom n'est pas permis.");
    case Acad::eWasOpenForRead:
    case Acad::eWasOpenForWrite:
        return QStringLiteral("le calque est en cours d'utilisation.");
    default:
        return QString::fromWCharArray(acadErrorStatusText(status));
    }
}

layerEdits::Refusal refusal(Acad::ErrorStatus status)
{
    if (status == Acad::eOk)
        return std::nullopt;
    return reasonOf(status);
}

/// Opens the layer in one step for U and lets `change` do its work.
template <class Change>
layerEdits::Refusal edit(Document& document, AcDbObjectId id, Change change)
{
    const DrawingEdit step(document);
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
    return refusal(layer.openStatus() == Acad::eOk ? change(*layer.object()) : layer.openStatus());
}

} // namespace

std::vector<LayerRow> layersOf(AcDbDatabase& database)
{
    std::vector<LayerRow> rows;
    const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId());
    AcDbSymbolTableIterator* made = nullptr;
    if (table.openStatus() != Acad::eOk || table->newIterator(made) != Acad::eOk)
        return rows;
    const std::unique_ptr<AcDbSymbolTableIterator> at(made);
    for (; !at->done(); at->step()) {
        AcDbObjectId id;
        if (at->getRecordId(id) == Acad::eOk)
            rows.push_back(rowOf(id, database.clayer()));
    }
    QCollator order;
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(rows, [&order](const LayerRow& a, const LayerRow& b) {
        const bool first = a.name == QLatin1String("0"), second = b.name == QLatin1String("0");
        return first != second ? first : order.compare(a.name, b.name) < 0;
    });
    return rows;
}

namespace layerEdits {

Refusal setOff(Document& document, AcDbObjectId id, bool off)
{
    return edit(document, id, [off](AcDbLayerTableRecord& layer) {
        layer.setIsOff(off);
        return Acad::eOk;
    });
}

Refusal setFrozen(Document& document, AcDbObjectId id, bool frozen)
{
    if (frozen && document.database()->clayer() == id)
        return QStringLiteral("le calque courant ne peut être gelé.");
    return edit(document, id, [frozen](AcDbLayerTableRecord& layer) { return layer.setIsFrozen(frozen); });
}

Refusal setLocked(Document& document, AcDbObjectId id, bool locked)
{
    return edit(document, id, [locked](AcDbLayerTableRecord& layer) {
        layer.setIsLocked(locked);
        return Acad::eOk;
    });
}

Refusal setColor(Document& document, AcDbObjectId id, int color)
{
    return edit(document, id, [color](AcDbLayerTableRecord& layer) {
        AcCmColor wanted;
        wanted.setColorIndex(static_cast<Adesk::UInt16>(color));
        layer.setColor(wanted);
        return Acad::eOk;
    });
}

Refusal setCurrent(Document& document, AcDbObjectId id)
{
    if (AcDbObjectPointer<AcDbLayerTableRecord> layer(id); layer.openStatus() == Acad::eOk && layer->isFrozen())
        return QStringLiteral("un calque gelé ne peut être courant.");
    const DrawingEdit step(document);
    return refusal(document.database()->setClayer(id));
}

Refusal rename(Document& document, AcDbObjectId id, const QString& name)
{
    if (document.database()->layerZero() == id)
        return QStringLiteral("le calque « 0 » ne peut être renommé.");
    const std::wstring wanted = name.trimmed().toStdWString();
    return edit(document, id, [&wanted](AcDbLayerTableRecord& layer) { return layer.setName(wanted.c_str()); });
}

Refusal create(Document& document, AcDbObjectId& made)
{
    const DrawingEdit step(document);
    const AcDbObjectPointer<AcDbLayerTable> table(document.database()->layerTableId(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk)
        return refusal(table.openStatus());
    std::wstring name;
    for (int number = 1; name.empty() || table->has(name.c_str()); ++number)
        name = L"Calque" + std::to_wstring(number);
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(name.c_str());
    layer->setLinetypeObjectId(document.database()->continuousLinetype());
    const Acad::ErrorStatus status = table->add(made, layer.get());
    if (status == Acad::eOk)
        layer.release()->close();
    return refusal(status);
}

Refusal remove(Document& document, const std::vector<AcDbObjectId>& layers)
{
    AcDbDatabase& database = *document.database();
    AcDbObjectIdArray unneeded;
    for (const AcDbObjectId id : layers) {
        if (id == database.layerZero())
            return QStringLiteral("le calque « 0 » ne peut être supprimé.");
        if (id == database.clayer())
            return QStringLiteral("le calque courant ne peut être supprimé.");
        unneeded.append(id);
    }
    if (const Acad::ErrorStatus status = database.purge(unneeded); status != Acad::eOk)
        return refusal(status);
    for (const AcDbObjectId id : layers)
        if (!unneeded.contains(id))
            return QStringLiteral("le calque « %1 » n'est pas vide : des objets ou des blocs l'utilisent.")
                .arg(nameOf(id));
    const DrawingEdit step(document);
    for (const AcDbObjectId id : layers) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        const Acad::ErrorStatus status = layer.openStatus() == Acad::eOk ? layer->erase() : layer.openStatus();
        if (status != Acad::eOk)
            return refusal(status);
    }
    return std::nullopt;
}

Refusal isolate(Document& document, const std::vector<AcDbObjectId>& layers, std::vector<AcDbObjectId>& hidden)
{
    if (layers.empty())
        return QStringLiteral("choisissez d'abord un calque.");
    const DrawingEdit step(document);
    AcDbDatabase& database = *document.database();
    if (std::ranges::find(layers, database.clayer()) == layers.end())
        if (const Refusal refused = setCurrent(document, layers.front()))
            return refused;
    for (const LayerRow& row : layersOf(database)) {
        const bool wanted = std::ranges::find(layers, row.id) != layers.end();
        if (wanted != row.off)
            continue;
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(row.id, AcDb::kForWrite);
        if (layer.openStatus() != Acad::eOk)
            return refusal(layer.openStatus());
        layer->setIsOff(!wanted);
        if (!wanted)
            hidden.push_back(row.id);
    }
    return std::nullopt;
}

void setShown(Document& document, const std::vector<AcDbObjectId>& layers)
{
    const DrawingEdit step(document);
    for (const AcDbObjectId id : layers)
        if (const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite); layer.openStatus() == Acad::eOk)
            layer->setIsOff(false);
}

} // namespace layerEdits
