#pragma once

/// Constants shared by the database classes.
class AcDb {
public:
    enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
    enum Visibility { kInvisible = 1, kVisible = 0 };
    enum Intersect { kOnBothOperands = 0, kExtendThis = 1, kExtendArg = 2, kExtendBoth = 3 };
    enum Poly2dType { k2dSimplePoly = 0, k2dFitCurvePoly, k2dQuadSplinePoly, k2dCubicSplinePoly };
    enum Poly3dType { k3dSimplePoly = 0, k3dQuadSplinePoly, k3dCubicSplinePoly };
    enum PolyMeshType { kSimpleMesh = 0, kQuadSurfaceMesh = 5, kCubicSurfaceMesh = 6, kBezierSurfaceMesh = 8 };
    enum Vertex2dType { k2dVertex = 0, k2dSplineCtlVertex, k2dSplineFitVertex, k2dCurveFitVertex };
    enum Vertex3dType { k3dSimpleVertex = 0, k3dControlVertex, k3dFitVertex };
    enum TextHorzMode { kTextLeft = 0, kTextCenter, kTextRight, kTextAlign, kTextMid, kTextFit };
    enum TextVertMode { kTextBase = 0, kTextBottom, kTextVertMid, kTextTop };
    enum LineWeight { kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3, kLnWt000 = 0, kLnWt025 = 25 };
    enum DuplicateRecordCloning { kDrcNotApplicable = 0, kDrcIgnore = 1, kDrcReplace = 2 };
    /// Result-buffer type codes ("DXF codes") met most.
    enum DxfCode {
        kDxfXRefPath = 1,
        kDxfText = 1,
        kDxfBlockName = 2,
        kDxfSymbolTableName = 2,
        kDxfAttributeTag = 2,
        kDxfStart = 0,
        kDxfXCoord = 10,
        kDxfReal = 40,
        kDxfInt16 = 70,
        kDxfInt32 = 90,
        kDxfSubclass = 100,
        kDxfXTextString = 300,
        kDxfBinaryChunk = 310,
        kDxfArbHandle = 320,
        kDxfSoftPointerId = 330,
        kDxfHardPointerId = 340,
        kDxfSoftOwnershipId = 350,
        kDxfHardOwnershipId = 360,
        kDxfXDataStart = 1000,
        kDxfXdAsciiString = 1000,
        kDxfRegAppName = 1001,
        kDxfXdControlString = 1002,
        kDxfXdLayerName = 1003,
        kDxfXdBinaryChunk = 1004,
        kDxfXdHandle = 1005,
        kDxfXdXCoord = 1010,
        kDxfXdWorldXCoord = 1011,
        kDxfXdWorldXDisp = 1012,
        kDxfXdWorldXDir = 1013,
        kDxfXdReal = 1040,
        kDxfXdDist = 1041,
        kDxfXdScale = 1042,
        kDxfXdInteger16 = 1070,
        kDxfXdInteger32 = 1071,
    };
};
