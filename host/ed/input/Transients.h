#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "acgitransient.h"
#include "dbid.h"
#include "gemat3d.h"
#include "gepnt3d.h"

class AcApDocument;
class AcDbEntity;

/// What is shown over the drawing of a document without being of it: vectors of acedGrDraw, transient graphics of
/// modules, the entity of a jig. Kept whether or not a window is there to draw it; a window reads it.
class Transients {
public:
    static Transients& of(AcApDocument& document);

    struct Vector {
        AcGePoint3d from, to;     ///< world coordinates
        int color = 7;            ///< index; -1: inverts what is below
        bool highlighted = false; ///< dashed
    };
    struct Item {
        AcGiDrawable* drawable; ///< not owned; an entity, of a drawing or of none
        AcGiTransientDrawingMode mode;
        int subMode;
    };

    /// Entities of the drawing, where the place that is asked for from `base` would take them.
    struct Ghost {
        std::vector<AcDbObjectId> entities;
        AcGePoint3d base;
        std::function<AcGeMatrix3d(const AcGePoint3d& place)> moved;
    };

    /// In the order of drawing.
    const std::vector<Vector>& vectors() const { return m_vectors; }
    const std::vector<Item>& items() const { return m_items; }
    /// Null when no jig runs. It is not open and in no drawing.
    const AcDbEntity* dragged() const { return m_dragged; }
    const std::optional<Ghost>& ghost() const { return m_ghost; }
    /// Of acedGrText: the status line, and the coordinates' place; empty for the usual ones.
    const std::wstring& statusText() const { return m_status; }
    const std::wstring& coordinatesText() const { return m_coordinates; }

    /// Grows with each change.
    std::uint64_t revision() const { return m_revision; }
    /// One function for all documents, called at each change: to ask for a repaint later, nothing else.
    static void onChange(std::function<void(AcApDocument&)> changed);

    void addVector(const Vector& vector);
    /// False when it is null or there already.
    bool add(AcGiDrawable* drawable, AcGiTransientDrawingMode mode, int subMode);
    bool update(AcGiDrawable* drawable);
    bool remove(AcGiDrawable* drawable);
    bool removeAll(AcGiTransientDrawingMode mode, int subMode);
    void setDragged(const AcDbEntity* entity);
    void setGhost(std::optional<Ghost> ghost);
    void setStatusText(std::wstring text);
    void setCoordinatesText(std::wstring text);
    /// The drawing is drawn anew: what lasts until then goes.
    void redrawn();

private:
    void changed();

    AcApDocument* m_document = nullptr;
    std::vector<Vector> m_vectors;
    std::vector<Item> m_items;
    const AcDbEntity* m_dragged = nullptr;
    std::optional<Ghost> m_ghost;
    std::wstring m_status, m_coordinates;
    std::uint64_t m_revision = 0;
};
