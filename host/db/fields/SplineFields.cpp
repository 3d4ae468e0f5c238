#include "db/fields/EntityFields.h"

#include "dbspline.h"

namespace {

using Reals = std::vector<double>;
using Points = std::vector<AcGePoint3d>;

/// How many follow: written, never trusted.
template <auto Member>
DxfField countRow(int code)
{
    return {static_cast<std::int16_t>(code),
            1,
            true,
            [](const DxfReadContext&, AcDbObject&, const DxfTag&, int) { return true; },
            [](DxfWriteContext& context, const AcDbObject& object, int written, int) {
                context.out.integer(written, static_cast<std::int64_t>(dxf_rows::in<Member>(object).size()));
            },
            [](const AcDbObject& a, const AcDbObject& b, int) {
                return dxf_rows::in<Member>(a).size() == dxf_rows::in<Member>(b).size();
            },
            {}};
}

template <auto Member>
DxfField realsRow(std::int16_t code)
{
    return listField(
        {code},
        [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
            return dxfReal(context.form, tag, dxf_rows::in<Member>(object).emplace_back());
        },
        [](DxfWriteContext& context, const AcDbObject& object, int written, int) {
            for (const double value : dxf_rows::in<Member>(object))
                context.out.real(written, value);
        },
        [](const AcDbObject& a, const AcDbObject& b, int) {
            return dxf_rows::in<Member>(a) == dxf_rows::in<Member>(b);
        },
        [](AcDbObject& object) { dxf_rows::in<Member>(object).clear(); });
}

template <auto Member>
DxfField pointsRow(std::int16_t code)
{
    return listField(
        {code, static_cast<std::int16_t>(code + 10), static_cast<std::int16_t>(code + 20)},
        [](const DxfReadContext& context, AcDbObject& object, const DxfTag& tag, int) {
            Points& points = dxf_rows::in<Member>(object);
            const int axis = tag.code / 10 - 1; // group codes 1n, 2n, 3n
            if (axis == 0)
                points.emplace_back();
            return points.empty() || dxfReal(context.form, tag, dxf_rows::coordinate(points.back(), axis));
        },
        [](DxfWriteContext& context, const AcDbObject& object, int written, int) {
            for (const AcGePoint3d& point : dxf_rows::in<Member>(object))
                context.out.point(written, point.x, point.y, point.z);
        },
        [](const AcDbObject& a, const AcDbObject& b, int) {
            const Points &first = dxf_rows::in<Member>(a), &second = dxf_rows::in<Member>(b);
            bool same = first.size() == second.size();
            for (std::size_t i = 0; same && i < first.size(); ++i)
                same = first[i].x == second[i].x && first[i].y == second[i].y && first[i].z == second[i].z;
            return same;
        },
        [](AcDbObject& object) { dxf_rows::in<Member>(object).clear(); });
}

} // namespace

void DxfFieldsOfSplines::add(DxfClasses& classes)
{
    static const DxfSubclass spline(
        "AcDbSpline",
        {pointField<&AcDbSpline::m_normal>(210), integerField<&AcDbSpline::m_flags>(70, DxfWhen::always),
         integerField<&AcDbSpline::m_degree>(71, DxfWhen::always), countRow<&AcDbSpline::m_knots>(72),
         countRow<&AcDbSpline::m_controlPoints>(73), countRow<&AcDbSpline::m_fitPoints>(74),
         realField<&AcDbSpline::m_knotTolerance>(42, DxfWhen::always),
         realField<&AcDbSpline::m_controlTolerance>(43, DxfWhen::always), realField<&AcDbSpline::m_fitTolerance>(44),
         pointField<&AcDbSpline::m_startTangent>(12), pointField<&AcDbSpline::m_endTangent>(13),
         realsRow<&AcDbSpline::m_knots>(40), realsRow<&AcDbSpline::m_weights>(41),
         pointsRow<&AcDbSpline::m_controlPoints>(10), pointsRow<&AcDbSpline::m_fitPoints>(11)});
    addEntityClass<AcDbSpline>(classes, "SPLINE", {&spline});
}
