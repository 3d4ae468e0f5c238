#include "db/fields/EntityFields.h"

#include "dbdim.h"

void DxfFieldsOfDimensions::add(DxfClasses& classes)
{
    static const DxfSubclass common(
        "AcDbDimension",
        {nameField<&AcDbDimension::m_block, NameKind::block>(2),
         pointField<&AcDbDimension::m_definition>(10, DxfWhen::always),
         pointField<&AcDbDimension::m_textPosition>(11, DxfWhen::always), pointField<&AcDbDimension::m_insertion>(12),
         integerField<&AcDbDimension::m_type>(70, DxfWhen::always), textField<&AcDbDimension::m_text>(1),
         realField<&AcDbDimension::m_measurement>(42), degreesField<&AcDbDimension::m_textRotation>(53),
         nameField<&AcDbDimension::m_style, NameKind::dimStyle>(3), pointField<&AcDbDimension::m_normal>(210)});
    const auto twoPoints = [] {
        return std::vector<DxfField>{pointField<&AcDbDimension::m_point13>(13, DxfWhen::always),
                                     pointField<&AcDbDimension::m_point14>(14, DxfWhen::always)};
    };
    const auto withPoint15 = [](std::vector<DxfField> rows) {
        rows.push_back(pointField<&AcDbDimension::m_point15>(15, DxfWhen::always));
        return rows;
    };
    const auto round = [] {
        return std::vector<DxfField>{pointField<&AcDbDimension::m_point15>(15, DxfWhen::always),
                                     realField<&AcDbDimension::m_leader>(40)};
    };
    // A rotated dimension is stored as an aligned one with an angle.
    auto turnedPoints = twoPoints();
    turnedPoints.push_back(degreesField<&AcDbDimension::m_angle>(50));
    static const DxfSubclass aligned("AcDbAlignedDimension", twoPoints());
    static const DxfSubclass turned("AcDbAlignedDimension", turnedPoints);
    static const DxfSubclass rotated("AcDbRotatedDimension", {});
    static const DxfSubclass radial("AcDbRadialDimension", round());
    static const DxfSubclass diametric("AcDbDiametricDimension", round());
    auto angularPoints = withPoint15(twoPoints());
    angularPoints.push_back(pointField<&AcDbDimension::m_point16>(16, DxfWhen::always));
    static const DxfSubclass angular("AcDb2LineAngularDimension", angularPoints);
    static const DxfSubclass threePoints("AcDb3PointAngularDimension", withPoint15(twoPoints()));
    static const DxfSubclass ordinate("AcDbOrdinateDimension", twoPoints());

    addEntityClass<AcDbRotatedDimension>(classes, "DIMENSION", {&common, &turned, &rotated}, "AcDbRotatedDimension");
    addEntityClass<AcDbAlignedDimension>(classes, "DIMENSION", {&common, &aligned}, "AcDbAlignedDimension");
    addEntityClass<AcDbRadialDimension>(classes, "DIMENSION", {&common, &radial}, "AcDbRadialDimension");
    addEntityClass<AcDbDiametricDimension>(classes, "DIMENSION", {&common, &diametric}, "AcDbDiametricDimension");
    addEntityClass<AcDb2LineAngularDimension>(classes, "DIMENSION", {&common, &angular}, "AcDb2LineAngularDimension");
    addEntityClass<AcDb3PointAngularDimension>(classes, "DIMENSION", {&common, &threePoints},
                                               "AcDb3PointAngularDimension");
    addEntityClass<AcDbOrdinateDimension>(classes, "DIMENSION", {&common, &ordinate}, "AcDbOrdinateDimension");
}
