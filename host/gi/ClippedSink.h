#pragma once

#include "gi/GraphicsSink.h"

/// Whether a point lies within a ring, as seen from above; a part that the ring goes about twice is outside.
bool isWithin(std::span<const AcGePoint3d> ring, const AcGePoint3d& point);

/// Hands on what lies within a ring, as seen from above: lines and areas are cut at it; a text that crosses it is
/// handed on with the ring, for the last sink to cut.
class ClippedSink : public GraphicsSink {
public:
    /// @param ring of the world; not closed by repeating its first point
    ClippedSink(GraphicsSink& sink, std::vector<AcGePoint3d> ring);

    void polyline(Points points, const Appearance& look) override;
    void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance& look) override;
    void dot(const AcGePoint3d& point, const Appearance& look) override;
    void text(const TextItem& item, const Appearance& look) override;
    bool enter(AcDbObjectId entity, const AcGeMatrix3d& toWorld) override { return m_sink.enter(entity, toWorld); }
    void leave() override { m_sink.leave(); }
    bool stopped() override { return m_sink.stopped(); }

private:
    using Ring = std::vector<AcGePoint3d>;

    bool holds(const AcGePoint3d& point) const { return isWithin(m_ring, point); }
    bool isCrossedBy(const AcGePoint3d& from, const AcGePoint3d& to) const { return crossings(from, to).size() > 2; }
    /// Shares of the way between two points where it crosses the ring, from 0 to 1, in order.
    std::vector<double> crossings(const AcGePoint3d& from, const AcGePoint3d& to) const;

    GraphicsSink& m_sink;
    Ring m_ring;
    std::vector<Ring> m_convex; ///< parts of it that are convex, turning left; none before an area is cut
};
