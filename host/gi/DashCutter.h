#pragma once

#include <functional>
#include <span>
#include <vector>

#include "gi/Box2d.h"
#include "gi/SceneTables.h"

/// Cuts polylines into the dashes of a linetype, as seen from above.
///
/// A line begins and ends with a dash: what does not fill a whole pattern lengthens the two. One too short for a
/// pattern, or whose dashes could not be told apart in the view, stays whole. Only the part in the view is cut, into a
/// bounded number of pieces whatever the pattern.
class DashCutter {
public:
    using Take = std::function<void(std::span<const AcGePoint3d>)>;

    /// @param scale drawing units for a unit of the dashes
    /// @param shortest length of a pattern that can be told apart, in drawing units
    /// @param take gets each dash; a dot as two equal points
    DashCutter(const Dashes& dashes, double scale, double shortest, const Box2d& view, Take take);

    void cut(std::span<const AcGePoint3d> points);
    /// Dashes counted from `phase` along an endless line, ends left as they fall: for the lines of hatch patterns.
    void cutAt(const AcGePoint3d& from, const AcGePoint3d& to, double phase);

private:
    struct Place {
        std::size_t element;
        double left;  ///< of that element
        bool isBegin; ///< of that element, in its usual length
    };
    double lengthOf(std::size_t element) const;
    Place placeAt(double distance) const;
    void showDotsBefore(std::size_t element, const AcGePoint3d& where);
    void cutSegment(const AcGePoint3d& from, const AcGePoint3d& to, double begun, double length);
    void flush();

    const Dashes& m_dashes;
    double m_scale, m_shortest, m_pattern;
    Box2d m_view;
    Take m_take;
    double m_length = 0.0, m_ends = 0.0, m_phase = 0.0;
    bool m_lengthened = false; // the two end dashes
    std::vector<AcGePoint3d> m_run;
};
