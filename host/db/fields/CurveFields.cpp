#include "db/fields/EntityFields.h"

#include "dbelipse.h"
#include "dbents.h"

void DxfFieldsOfCurves::add(DxfClasses& classes)
{
    static const DxfSubclass point(
        "AcDbPoint", {pointField<&AcDbPoint::m_position>(10, DxfWhen::always), realField<&AcDbPoint::m_thickness>(39),
                      pointField<&AcDbPoint::m_normal>(210), degreesField<&AcDbPoint::m_rotation>(50)});
    addEntityClass<AcDbPoint>(classes, "POINT", {&point});

    static const DxfSubclass line(
        "AcDbLine", {realField<&AcDbLine::m_thickness>(39), pointField<&AcDbLine::m_start>(10, DxfWhen::always),
                     pointField<&AcDbLine::m_end>(11, DxfWhen::always), pointField<&AcDbLine::m_normal>(210)});
    addEntityClass<AcDbLine>(classes, "LINE", {&line});

    static const DxfSubclass circle("AcDbCircle", {realField<&AcDbCircularCurve::m_thickness>(39),
                                                   pointField<&AcDbCircularCurve::m_center>(10, DxfWhen::always),
                                                   realField<&AcDbCircularCurve::m_radius>(40, DxfWhen::always),
                                                   pointField<&AcDbCircularCurve::m_normal>(210)});
    addEntityClass<AcDbCircle>(classes, "CIRCLE", {&circle});

    static const DxfSubclass arc("AcDbArc", {degreesField<&AcDbArc::m_startAngle>(50, DxfWhen::always),
                                             degreesField<&AcDbArc::m_endAngle>(51, DxfWhen::always)});
    addEntityClass<AcDbArc>(classes, "ARC", {&circle, &arc});

    // Its parameters are radians in the file too.
    static const DxfSubclass ellipse("AcDbEllipse", {pointField<&AcDbEllipse::m_center>(10, DxfWhen::always),
                                                     pointField<&AcDbEllipse::m_majorAxis>(11, DxfWhen::always),
                                                     pointField<&AcDbEllipse::m_normal>(210),
                                                     realField<&AcDbEllipse::m_radiusRatio>(40, DxfWhen::always),
                                                     realField<&AcDbEllipse::m_startParam>(41, DxfWhen::always),
                                                     realField<&AcDbEllipse::m_endParam>(42, DxfWhen::always)});
    addEntityClass<AcDbEllipse>(classes, "ELLIPSE", {&ellipse});
}
