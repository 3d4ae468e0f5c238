#include "everyEntity.h"

#include <cstdio>

#include "../../db/entities/DrawingWithEntities.h"

#include "dbents.h"
#include "dbsymtb.h"

namespace {

constexpr double cell = 20.0;
constexpr int columns = 6;

/// Records of entities, in the coordinates of a cell.
class Records {
public:
    Records(double shiftX, double shiftY) : m_shiftX(shiftX), m_shiftY(shiftY) {}

    /// The next cell, called by a text at its foot.
    void next(const char* name)
    {
        ++m_cell;
        add("TEXT", "AcDbText");
        point(10, 1, 1);
        tag(40, 1.6);
        text(1, name);
        tag(100, "AcDbText");
    }
    void add(const char* type, const char* marker)
    {
        tag(0, type);
        tag(100, marker);
    }
    void tag(int code, const char* value) { m_text += std::to_string(code) + " " + value + "\n"; }
    void text(int code, const char* value) { tag(code, value); }
    void tag(int code, double value)
    {
        char number[64];
        std::snprintf(number, sizeof number, "%.10g", value);
        tag(code, number);
    }
    void tag(int code, int value) { tag(code, static_cast<double>(value)); }
    void point(int code, double x, double y)
    {
        tag(code, x + originX());
        tag(code + 10, y + originY());
    }
    double originX() const { return m_shiftX + m_cell % columns * cell; }
    double originY() const { return m_shiftY + m_cell / columns * cell; }
    const std::string& all() const { return m_text; }

private:
    double m_shiftX, m_shiftY;
    int m_cell = -1;
    std::string m_text;
};

void addCurves(Records& to)
{
    to.next("LINE");
    for (const int color : {1, 3, 5, 30, 7}) {
        to.tag(0, "LINE");
        to.tag(62, color);
        to.tag(100, "AcDbLine");
        to.point(10, 2, 3 + color / 3.0);
        to.point(11, 18, 18 - color / 3.0);
    }
    to.next("CIRCLE ARC");
    to.add("CIRCLE", "AcDbCircle");
    to.point(10, 10, 11);
    to.tag(40, 7.0);
    to.add("ARC", "AcDbCircle");
    to.point(10, 10, 11);
    to.tag(40, 4.0);
    to.tag(100, "AcDbArc");
    to.tag(50, 30);
    to.tag(51, 240);
    to.next("ELLIPSE");
    to.add("ELLIPSE", "AcDbEllipse");
    to.point(10, 10, 11);
    to.tag(11, 6.0);
    to.tag(21, 4.0);
    to.tag(40, 0.5);
    to.tag(41, 0);
    to.tag(42, 5.0);
    to.next("SPLINE");
    to.add("SPLINE", "AcDbSpline");
    to.text(70, "8");
    to.text(71, "3");
    for (const double knot : {0.0, 0.0, 0.0, 0.0, 0.5, 1.0, 1.0, 1.0, 1.0})
        to.tag(40, knot);
    const double controls[][2] = {{2, 4}, {6, 18}, {10, 0}, {14, 18}, {18, 6}};
    for (const auto& p : controls)
        to.point(10, p[0], p[1]);
    to.next("LWPOLYLINE");
    to.add("LWPOLYLINE", "AcDbPolyline");
    to.text(90, "4");
    to.text(70, "1");
    to.point(10, 3, 5);
    to.point(10, 16, 5);
    to.tag(42, 0.8);
    to.point(10, 16, 14);
    to.point(10, 3, 14);
    to.tag(42, -0.4);
    to.next("largeurs");
    to.add("LWPOLYLINE", "AcDbPolyline");
    to.text(90, "4");
    to.text(70, "0");
    const double widths[][4] = {{3, 6, 1.5, 1.5}, {14, 6, 1.5, 1.5}, {14, 14, 1.5, 0.2}, {4, 16, 0.2, 0.2}};
    for (const auto& p : widths) {
        to.point(10, p[0], p[1]);
        to.tag(40, p[2]);
        to.tag(41, p[3]);
        to.tag(42, p[0] == 14.0 && p[1] == 6.0 ? 0.5 : 0.0);
    }
}

void addVertices(Records& to, const char* type, const char* marker, int flags)
{
    to.add("POLYLINE", type);
    to.text(66, "1");
    to.tag(70, flags);
    const double vertices[][2] = {{3, 5}, {16, 7}, {12, 16}, {5, 14}};
    for (const auto& p : vertices) {
        to.add("VERTEX", "AcDbVertex");
        to.tag(100, marker);
        to.point(10, p[0], p[1]);
        to.text(70, flags & 8 ? "32" : "0");
    }
    to.tag(0, "SEQEND");
}

void addMeshes(Records& to)
{
    to.next("POLYLINE 2D 3D");
    addVertices(to, "AcDb2dPolyline", "AcDb2dVertex", 1);
    addVertices(to, "AcDb3dPolyline", "AcDb3dPolylineVertex", 8);
    to.next("3DFACE");
    to.add("3DFACE", "AcDbFace");
    to.point(10, 3, 5);
    to.point(11, 17, 5);
    to.point(12, 14, 17);
    to.point(13, 5, 15);
    to.text(70, "4");
    to.next("SOLID");
    to.tag(0, "SOLID");
    to.text(62, "2");
    to.tag(100, "AcDbTrace");
    to.point(10, 3, 5);
    to.point(11, 17, 5);
    to.point(12, 6, 16);
    to.point(13, 14, 16);
    to.next("maillage");
    to.add("POLYLINE", "AcDbPolygonMesh");
    to.text(66, "1");
    to.text(70, "16");
    to.text(71, "3");
    to.text(72, "4");
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column) {
            to.add("VERTEX", "AcDbVertex");
            to.tag(100, "AcDbPolygonMeshVertex");
            to.point(10, 3 + column * 4.5 + row, 5 + row * 5.0 + (column % 2));
            to.text(70, "64");
        }
    to.tag(0, "SEQEND");
    to.next("polyface");
    to.add("POLYLINE", "AcDbPolyFaceMesh");
    to.text(66, "1");
    to.text(70, "64");
    const double corners[][2] = {{3, 5}, {17, 5}, {17, 16}, {3, 16}, {10, 10}};
    for (const auto& p : corners) {
        to.add("VERTEX", "AcDbVertex");
        to.tag(100, "AcDbPolyFaceMeshVertex");
        to.point(10, p[0], p[1]);
        to.text(70, "192");
    }
    const int faces[][3] = {{1, 2, 5}, {2, 3, -5}, {3, -4, 5}};
    for (const auto& face : faces) {
        to.add("VERTEX", "AcDbFaceRecord");
        to.text(70, "128");
        for (int i = 0; i < 3; ++i)
            to.tag(71 + i, face[i]);
    }
    to.tag(0, "SEQEND");
    to.next("POINT");
    for (const double x : {5.0, 10.0, 15.0}) {
        to.add("POINT", "AcDbPoint");
        to.point(10, x, x);
    }
}

void addLoop(Records& to, double low, double high)
{
    to.text(92, "3");
    to.text(72, "0");
    to.text(73, "1");
    to.text(93, "4");
    to.point(10, low, low + 1);
    to.point(10, high, low + 1);
    to.point(10, high, high);
    to.point(10, low, high);
    to.text(97, "0");
}

void addHatch(Records& to, bool solid)
{
    to.tag(0, "HATCH");
    to.text(62, solid ? "140" : "4");
    to.tag(100, "AcDbHatch");
    for (const int code : {10, 20, 30, 210, 220})
        to.tag(code, 0);
    to.tag(230, 1);
    to.text(2, solid ? "SOLID" : "LIGNES");
    to.text(70, solid ? "1" : "0");
    to.text(71, "0");
    to.text(91, "2");
    addLoop(to, 3, 17);
    addLoop(to, 8, 13);
    to.text(75, "0");
    to.text(76, "1");
    if (!solid) {
        to.text(52, "0");
        to.text(41, "1");
        to.text(77, "0");
        to.text(78, "2");
        for (const double angle : {45.0, 0.0}) {
            to.tag(53, angle);
            to.tag(43, to.originX());
            to.tag(44, to.originY());
            to.tag(45, angle == 0.0 ? 0.0 : -1.0);
            to.tag(46, angle == 0.0 ? 3.0 : 1.0);
            to.text(79, angle == 0.0 ? "2" : "0");
            if (angle == 0.0) {
                to.tag(49, 1.5);
                to.tag(49, -0.5);
            }
        }
    }
    to.text(98, "0");
}

void addTexts(Records& to)
{
    to.next("HATCH");
    addHatch(to, false);
    to.next("HATCH plein");
    addHatch(to, true);
    to.next("TEXT");
    struct Row {
        const char* text;
        double x, y, height, rotation, width, oblique;
        int generation;
    };
    constexpr Row rows[] = {{"%%u\\U+00C9l\\U+00E9vation%%u", 2, 16, 2.0, 0, 1, 0, 0},
                            {"%%c300 %%p2 45%%d", 2, 13, 1.6, 0, 1, 0, 0},
                            {"\\U+00E9troit", 2, 10, 2.0, 0, 0.6, 0, 0},
                            {"pench\\U+00E9", 10, 10, 2.0, 0, 1, 20, 0},
                            {"tourn\\U+00E9", 13, 3.5, 2.0, 60, 1, 0, 0},
                            {"miroir", 11, 7, 1.6, 0, 1, 0, 2},
                            {"renvers\\U+00E9", 2, 6, 1.6, 0, 1, 0, 4}};
    for (const Row& row : rows) {
        to.add("TEXT", "AcDbText");
        to.point(10, row.x, row.y);
        to.tag(40, row.height);
        to.text(1, row.text);
        to.tag(50, row.rotation);
        to.tag(41, row.width);
        to.tag(51, row.oblique);
        to.tag(71, row.generation);
        to.tag(100, "AcDbText");
    }
    to.next("alignements");
    constexpr int modes[][2] = {{0, 3}, {1, 0}, {2, 1}, {4, 0}, {5, 0}, {3, 0}};
    for (int i = 0; i < 6; ++i) {
        to.add("TEXT", "AcDbText");
        to.point(10, i < 4 ? 10 : 3, 17 - 2.5 * i);
        to.tag(40, 1.5);
        to.text(1, "Align\\U+00E9");
        to.tag(72, modes[i][0]);
        to.point(11, i < 4 ? 10 : 17, 17 - 2.5 * i);
        to.tag(100, "AcDbText");
        to.tag(73, modes[i][1]);
    }
    to.next("MTEXT");
    to.add("MTEXT", "AcDbMText");
    to.point(10, 2, 18);
    to.tag(40, 1.5);
    to.tag(41, 15.0);
    to.text(71, "1");
    to.text(72, "1");
    to.text(
        1,
        "Borne {\\C1;rouge} et {\\H1.6x;grand} texte\\P{\\LSoulign\\U+00E9} \\S1/2; m\\U+00B2\\P\\pxqc;centr\\U+00E9");
    to.next("LTYPE");
    for (int i = 0; i < 4; ++i) {
        to.tag(0, "LINE");
        to.text(6, i % 2 ? "AXE" : "TIRETS");
        to.tag(48, i < 2 ? 1.0 : 0.5);
        to.tag(100, "AcDbLine");
        to.point(10, 2, 5 + 3 * i);
        to.point(11, 18, 6 + 3 * i);
    }
}

class Blocks {
public:
    Blocks(AcDbDatabase& database, const Records& cells) : m_database(database), m_cells(cells) {}

    AcDbObjectId block(const wchar_t* name, std::initializer_list<AcDbEntity*> entities)
    {
        AcDbBlockTable* table = nullptr;
        m_database.getSymbolTable(table, AcDb::kForWrite);
        auto* record = new AcDbBlockTableRecord;
        record->setName(name);
        AcDbObjectId id;
        table->add(id, record);
        table->close();
        for (AcDbEntity* entity : entities) {
            record->appendAcDbEntity(entity);
            entity->close();
        }
        record->close();
        return id;
    }
    void add(AcDbEntity* entity)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(m_database.currentSpaceId(), AcDb::kForWrite);
        space->appendAcDbEntity(entity);
        entity->close();
    }
    AcGePoint3d at(double x, double y) const { return {m_cells.originX() + x, m_cells.originY() + y, 0.0}; }

private:
    AcDbDatabase& m_database;
    const Records& m_cells;
};

template <class Entity>
Entity* colored(Entity* entity, Adesk::UInt16 color)
{
    entity->setColorIndex(color);
    return entity;
}

AcDbAttribute* attribute(const AcGePoint3d& at, const wchar_t* text, const wchar_t* tag, Adesk::UInt16 color)
{
    auto* made = new AcDbAttribute(at, text, tag);
    made->setHeight(1.6);
    return colored(made, color);
}

/// A survey point with its number and altitude, then the same symbol scaled unequally, turned, in rows.
void addReferences(AcDbDatabase& database, Records& cells)
{
    Blocks blocks(database, cells);
    const AcDbObjectId symbol = blocks.block(L"SYMBOLE", {new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 1.0),
                                                          new AcDbLine({-2, 0, 0}, {2, 0, 0}),
                                                          colored(new AcDbLine({0, -2, 0}, {0, 2, 0}), 0)});
    auto* survey = new AcDbBlockReference(blocks.at(6, 8), symbol);
    survey->appendAttribute(attribute(blocks.at(8, 9), L"101", L"MAT", 1));
    survey->appendAttribute(attribute(blocks.at(8, 6), L"154.27", L"ALT", 3));
    AcDbAttribute* hidden = attribute(blocks.at(1, 14), L"invisible", L"OBS", 5);
    hidden->setInvisible(Adesk::kTrue);
    survey->appendAttribute(hidden);
    blocks.add(colored(survey, 6));
    auto* stretched = new AcDbBlockReference(blocks.at(13, 14), symbol);
    stretched->setScaleFactors({2.5, 1.0, 1.0});
    stretched->setRotation(0.5);
    blocks.add(stretched);
}

void addArray(AcDbDatabase& database, Records& cells)
{
    Blocks blocks(database, cells);
    const AcDbObjectId tree = blocks.block(L"ARBRE", {new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 1.2)});
    auto* array = new AcDbMInsertBlock;
    array->setBlockTableRecord(tree);
    array->setPosition(blocks.at(4, 6));
    array->setRows(3);
    array->setColumns(4);
    array->setRowSpacing(4.0);
    array->setColumnSpacing(3.5);
    array->setRotation(0.1);
    blocks.add(colored(array, 3));
}

/// The dimension is shown by its block, which is drawn in the world.
void addDimensionBlock(AcDbDatabase& database, Records& cells)
{
    Blocks blocks(database, cells);
    auto* text = new AcDbText(blocks.at(7, 12.5), L"14.00", AcDbObjectId::kNull, 1.8);
    blocks.block(L"*D1",
                 {new AcDbLine(blocks.at(3, 5), blocks.at(3, 13)), new AcDbLine(blocks.at(17, 5), blocks.at(17, 13)),
                  new AcDbLine(blocks.at(3, 12), blocks.at(17, 12)),
                  new AcDbSolid(blocks.at(3, 12), blocks.at(5, 12.4), blocks.at(5, 11.6)), text});
}

void addLinetype(AcDbDatabase& database, const wchar_t* name, const std::vector<double>& dashes)
{
    AcDbLinetypeTable* table = nullptr;
    database.getSymbolTable(table, AcDb::kForWrite);
    auto* record = new AcDbLinetypeTableRecord;
    record->setName(name);
    record->setDashes(dashes);
    table->add(record);
    record->close();
    table->close();
}

} // namespace

std::unique_ptr<DrawingWithEntities> everyEntity(double shiftX, double shiftY)
{
    Records cells(shiftX, shiftY);
    addCurves(cells);
    addMeshes(cells);
    addTexts(cells);
    cells.next("INSERT");
    Records references = cells;
    cells.next("MINSERT");
    Records array = cells;
    cells.next("DIMENSION");
    cells.add("DIMENSION", "AcDbDimension");
    cells.text(2, "*D1");
    cells.point(10, 3, 12);
    cells.text(70, "1");
    cells.tag(100, "AcDbAlignedDimension");
    cells.point(13, 3, 5);
    cells.point(14, 17, 5);
    Records dimension = cells;
    cells.next("ATTDEF");
    cells.add("ATTDEF", "AcDbText");
    cells.point(10, 3, 10);
    cells.tag(40, 2.5);
    cells.text(1, "valeur");
    cells.tag(100, "AcDbAttributeDefinition");
    cells.text(3, "Question");
    cells.text(2, "MAT");
    cells.text(70, "0");
    auto drawing = std::make_unique<DrawingWithEntities>(cells.all());
    addLinetype(drawing->database(), L"TIRETS", {2.0, -1.0});
    addLinetype(drawing->database(), L"AXE", {3.0, -0.6, 0.0, -0.6});
    addReferences(drawing->database(), references);
    addArray(drawing->database(), array);
    addDimensionBlock(drawing->database(), dimension);
    return drawing;
}
