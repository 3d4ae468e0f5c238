#pragma once

#include <optional>
#include <QString>
#include <vector>

#include "dbsymtb.h"

class Document;

/// A layer as the panel shows it.
struct LayerRow {
    AcDbObjectId id;
    QString name;
    bool current = false, off = false, frozen = false, locked = false;
    int color = 7; ///< index
    QString linetype = {};
    bool operator==(const LayerRow&) const = default;
};

/// Layers of a drawing in alphabetical order, "0" first.
std::vector<LayerRow> layersOf(AcDbDatabase& database);

/// Changes of layers: each is one step for U. They give what refused them, in French; nothing when it was done.
namespace layerEdits {

using Refusal = std::optional<QString>;

Refusal setOff(Document& document, AcDbObjectId layer, bool off);
/// The current layer cannot be frozen.
Refusal setFrozen(Document& document, AcDbObjectId layer, bool frozen);
Refusal setLocked(Document& document, AcDbObjectId layer, bool locked);
Refusal setColor(Document& document, AcDbObjectId layer, int color);
/// A frozen layer cannot be current.
Refusal setCurrent(Document& document, AcDbObjectId layer);
/// Layer "0" keeps its name.
Refusal rename(Document& document, AcDbObjectId layer, const QString& name);
/// A new one, called "Calque1" or the first number that is free; `made` receives it.
Refusal create(Document& document, AcDbObjectId& made);
/// Nothing is removed when one of them is "0", current, or used by anything in the drawing.
Refusal remove(Document& document, const std::vector<AcDbObjectId>& layers);
/// Switches all others off; the first of them becomes current when the current one is among the others. `hidden`
/// receives what was switched off, for setShown.
Refusal isolate(Document& document, const std::vector<AcDbObjectId>& layers, std::vector<AcDbObjectId>& hidden);
/// Switches them on; those that are gone are left aside.
void setShown(Document& document, const std::vector<AcDbObjectId>& layers);

} // namespace layerEdits
