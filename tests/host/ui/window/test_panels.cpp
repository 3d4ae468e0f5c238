#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "ed/DrawingChanges.h"
#include "ed/input/CurrentView.h"
#include "ed/input/PickFirst.h"
#include "ui/window/Canvas.h"
#include "ui/window/ColorDialog.h"
#include "ui/window/DrawingEdit.h"
#include "ui/window/LayerModel.h"
#include "ui/window/MainWindow.h"
#include "ui/window/PointTables.h"
#include "ui/window/PropertyRows.h"

#include "dbentvrt.h"
#include "dbpl.h"
#include "Drawing.h"
#include "WindowTest.h"

/// The panels show the drawing, and what is changed in them changes it, step by step.

namespace {

/// Two tables, kept here instead of in a module.
class TwoTables : public PointTables {
public:
    QStringList tables() const override { return {QStringLiteral("LEVE"), second}; }
    int current() const override { return m_current; }
    void setCurrent(int table) override { m_current = table; }
    int count(int table) const override { return table == 0 ? points : 1; }
    std::optional<ShownPoint> point(int table, int place) const override
    {
        if (place >= count(table))
            return std::nullopt;
        return ShownPoint{(table == 0 ? QStringLiteral("S%1") : QStringLiteral("I%1")).arg(place + 1),
                          100,
                          10.0 * place,
                          20.5,
                          std::nullopt,
                          {}};
    }
    std::uint64_t state() const override { return static_cast<std::uint64_t>(points * 10 + m_current); }

    int points = 2;
    QString second = QStringLiteral("IMPLANTATION");

private:
    int m_current = 0;
};

TwoTables& twoTables()
{
    static TwoTables tables;
    return tables;
}

class PanelsTest : public WindowTest {
protected:
    PanelsTest() : WindowTest(&twoTables()) { DocumentList::instance().create(); }

    QTableView& layers() const { return child<QTableView>("tableCalques"); }
    LayerModel& layerModel() const { return static_cast<LayerModel&>(*layers().model()); }
    void clickLayer(int row, LayerModel::Column column) const
    {
        const QRect cell = layers().visualRect(layerModel().index(row, column));
        QTest::mouseClick(layers().viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    }
    static void undo() { document().database()->impl().undo().undo(); }

    QTreeWidget& properties() const { return child<QTreeWidget>("arbreProprietes"); }
    QTreeWidgetItem& property(const char* name) const
    {
        const auto found = properties().findItems(QString::fromUtf8(name), Qt::MatchExactly | Qt::MatchRecursive);
        EXPECT_EQ(found.size(), 1) << name;
        return *found.constFirst();
    }
    std::string valueOf(const char* name) const { return property(name).text(1).toStdString(); }
    Step change(const char* name, const char* value)
    {
        return [this, name, value] { property(name).setText(1, QString::fromUtf8(value)); };
    }
    static AcDbObjectId add(AcDbEntity* entity)
    {
        const DrawingEdit step(document());
        return ::add(entity);
    }
    static void select(const std::vector<AcDbObjectId>& ids) { PickFirst::of(document()).set(ids); }
};

TEST_F(PanelsTest, layersAreEditedStepByStep)
{
    play({
        [this] {
            ASSERT_EQ(layerModel().rowCount(), 1);
            EXPECT_EQ(layerModel().create(), 1);
            EXPECT_EQ(layerModel().row(1).name, QStringLiteral("Calque1"));
            EXPECT_TRUE(
                layerModel().setData(layerModel().index(1, LayerModel::name), QStringLiteral("Bâti"), Qt::EditRole));
            EXPECT_EQ(layerModel().row(1).name, QStringLiteral("Bâti"));
        },
        [this] {
            clickLayer(1, LayerModel::visible);
            clickLayer(1, LayerModel::locked);
            clickLayer(1, LayerModel::frozen);
            const LayerRow row = layerModel().row(1);
            EXPECT_TRUE(row.off && row.locked && row.frozen);
            whenDialog([](QDialog& dialog) { press(dialog, "OK"); });
            clickLayer(1, LayerModel::current);
            EXPECT_TRUE(layerModel().row(0).current) << "a frozen layer cannot be current";
            clickLayer(1, LayerModel::frozen);
            clickLayer(1, LayerModel::current);
            EXPECT_TRUE(layerModel().row(1).current);
            whenDialog([](QDialog& dialog) { press(dialog, "OK"); });
            clickLayer(1, LayerModel::frozen);
            EXPECT_FALSE(layerModel().row(1).frozen) << "the current layer cannot be frozen";
        },
        [this] {
            whenDialog([](QDialog& dialog) {
                dialog.findChild<QWidget*>(QStringLiteral("couleur30"))->setFocus();
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
            });
            clickLayer(1, LayerModel::color);
            EXPECT_EQ(layerModel().row(1).color, 30);
        },
        [] { undo(); },
        key(Qt::Key_Escape),
        type("testligne"), // the panel reads the drawing when a command has ended
        key(Qt::Key_Escape),
        [this] {
            EXPECT_EQ(layerModel().row(1).color, 7) << "the colour was one step";
            EXPECT_TRUE(layerModel().row(1).current) << "and the step before it still holds";
        },
    });
}

TEST_F(PanelsTest, layersAreRemovedWhenEmptyFilteredAndIsolated)
{
    const auto press = [this](const char* name) { child<QAbstractButton>(name).click(); };
    const auto rows = [this] {
        std::string names;
        for (int i = 0; i < layerModel().rowCount(); ++i)
            if (!layers().isRowHidden(i))
                names += layerModel().row(i).name.toStdString() + (layerModel().row(i).off ? "- " : "+ ");
        return names;
    };
    AcDbObjectId line;
    play({
        [&] {
            for (int i = 0; i < 3; ++i)
                layerModel().create();
            line = add(new AcDbLine({0, 0, 0}, {3, 4, 0}));
            AcDbObjectPointer<AcDbLine>(line, AcDb::kForWrite)->setLayer(L"Calque2");
            layers().selectRow(2);
            whenDialog([](QDialog& dialog) {
                EXPECT_TRUE(dialog.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))
                                ->text()
                                .contains(QStringLiteral("« Calque2 » n'est pas vide")));
                WindowTest::press(dialog, "OK");
            });
            press("boutonSupprimerCalque");
            EXPECT_EQ(rows(), "0+ Calque1+ Calque2+ Calque3+ ");
            layers().selectRow(3);
            press("boutonSupprimerCalque");
            EXPECT_EQ(rows(), "0+ Calque1+ Calque2+ ");
            undo();
            layerModel().refresh();
            EXPECT_EQ(rows(), "0+ Calque1+ Calque2+ Calque3+ ") << "one step";
        },
        [&] {
            clickLayer(1, LayerModel::visible);
            layers().selectRow(2);
            press("boutonIsolerCalque");
            EXPECT_EQ(rows(), "0- Calque1- Calque2+ Calque3- ");
            EXPECT_TRUE(layerModel().row(2).current) << "what is drawn next is seen";
            press("boutonIsolerCalque");
            EXPECT_EQ(rows(), "0+ Calque1- Calque2+ Calque3+ ") << "what was off before stays so";
        },
        [&] {
            auto& filter = child<QLineEdit>("filtreCalques");
            filter.setText(QStringLiteral("CALQUE"));
            EXPECT_EQ(rows(), "Calque1- Calque2+ Calque3+ ");
            filter.setText(QStringLiteral("*3"));
            EXPECT_EQ(rows(), "Calque3+ ");
            filter.clear();
        },
    });
}

TEST_F(PanelsTest, verticesOfPolylinesAreReadAndChanged)
{
    AcDbObjectId light, spatial;
    play({
        [&] {
            auto* const flat = new AcDbPolyline(2);
            flat->addVertexAt(0, {1, 2});
            flat->addVertexAt(1, {30, 40});
            flat->setElevation(7);
            light = add(flat);
            AcGePoint3dArray places;
            places.append({1, 2, 3});
            places.append({4, 5, 6});
            spatial = add(new AcDb3dPolyline(AcDb::k3dSimplePoly, places));
            select({light});
        },
        [this] {
            EXPECT_EQ(valueOf("Élévation (Z)"), "7");
            EXPECT_EQ(valueOf("Sommet 2 Y"), "40");
        },
        change("Sommet 2 X", "31,5"),
        [&] {
            AcGePoint2d moved;
            AcDbObjectPointer<AcDbPolyline>(light)->getPointAt(1, moved);
            EXPECT_EQ(moved, AcGePoint2d(31.5, 40));
            select({spatial});
        },
        [this] { EXPECT_EQ(valueOf("Sommet 2 Z"), "6"); },
        change("Sommet 2 Z", "6.25"),
        [&] {
            AcGePoint3d end;
            AcDbObjectPointer<AcDb3dPolyline>(spatial)->getEndPoint(end);
            EXPECT_EQ(end, AcGePoint3d(4, 5, 6.25));
        },
        [] { undo(); },
        [&] {
            select({light, spatial});
        },
        [this] {
            EXPECT_TRUE(properties().findItems(QStringLiteral("Sommets"), Qt::MatchExactly).isEmpty())
                << "of one polyline only";
        },
    });
}

TEST_F(PanelsTest, layersThatCannotBeRenamedSayWhy)
{
    play({
        [this] {
            layerModel().create();
            for (const char* name : {"0", "a/b", ""}) {
                whenDialog([](QDialog& dialog) { press(dialog, "OK"); });
                EXPECT_FALSE(layerModel().setData(layerModel().index(1, LayerModel::name), QString::fromUtf8(name),
                                                  Qt::EditRole))
                    << name;
            }
            whenDialog([](QDialog& dialog) { press(dialog, "OK"); });
            EXPECT_FALSE(
                layerModel().setData(layerModel().index(0, LayerModel::name), QStringLiteral("Autre"), Qt::EditRole));
            EXPECT_EQ(layerModel().row(0).name, QStringLiteral("0"));
        },
    });
}

TEST_F(PanelsTest, propertiesOfTheSelectionAreReadAndChanged)
{
    AcDbObjectId line, other, circle;
    play({
        [&] {
            line = add(new AcDbLine({0, 0, 0}, {3, 4, 0}));
            other = add(new AcDbLine({1, 1, 0}, {1, 9, 0}));
            circle = add(new AcDbCircle({5, 5, 0}, {0, 0, 1}, 2));
            select({line});
        },
        [this] {
            EXPECT_EQ(child<QLabel>("resumeSelection").text(), QStringLiteral("Ligne"));
            EXPECT_EQ(valueOf("Calque"), "0");
            EXPECT_EQ(valueOf("Couleur"), "DuCalque");
            EXPECT_EQ(valueOf("Type de ligne"), "DuCalque");
            EXPECT_EQ(valueOf("Longueur"), "5");
            EXPECT_EQ(valueOf("Fin Y"), "4");
            EXPECT_TRUE(properties().findItems(QStringLiteral("Rayon"), Qt::MatchRecursive).isEmpty());
        },
        change("Fin Y", "-4,5"),
        change("Type de ligne", "DuBloc"),
        change("Couleur", "rouge"),
        [&] {
            const AcDbObjectPointer<AcDbLine> read(line);
            EXPECT_EQ(read->endPoint(), AcGePoint3d(3, -4.5, 0));
            EXPECT_EQ(read->linetypeId(), document().database()->byBlockLinetype());
            EXPECT_EQ(read->colorIndex(), 1);
        },
        [] { undo(); },
        [&] {
            const AcDbObjectPointer<AcDbLine> read(line);
            EXPECT_EQ(read->colorIndex(), 256);
            EXPECT_EQ(read->endPoint().y, -4.5);
        },
        [&] {
            select({line, other});
        },
        [this] {
            EXPECT_EQ(child<QLabel>("resumeSelection").text(), QStringLiteral("Ligne : 2"));
            EXPECT_EQ(valueOf("Fin Y"), "*VARIÉ*");
            EXPECT_EQ(valueOf("Fin Z"), "0");
        },
        change("Fin Z", "7"),
        [&] {
            for (const AcDbObjectId id : {line, other})
                EXPECT_EQ(AcDbObjectPointer<AcDbLine>(id)->endPoint().z, 7);
            select({line, circle});
        },
        [this] {
            EXPECT_TRUE(properties().findItems(QStringLiteral("Fin Z"), Qt::MatchRecursive).isEmpty())
                << "a circle has no end";
            EXPECT_EQ(valueOf("Calque"), "0");
        },
        [&] { select({circle}); },
        [this] {
            whenDialog([](QDialog& dialog) { press(dialog, "OK"); });
            change("Rayon", "-2")();
        },
        [&] { EXPECT_EQ(AcDbObjectPointer<AcDbCircle>(circle)->radius(), 2) << "refused, and said so"; },
        change("Rayon", "3"),
        [&] {
            EXPECT_EQ(AcDbObjectPointer<AcDbCircle>(circle)->radius(), 3);
            select({circle, add(new AcDbArc({0, 0, 0}, 3, 0, 1))});
        },
        [this] { EXPECT_EQ(valueOf("Rayon"), "3") << "circles and arcs share it"; },
        [&] {
            select({line, circle, add(new AcDbPoint({0, 0, 0})), add(new AcDbArc({0, 0, 0}, 4, 0, 1))});
        },
        [this] {
            const auto& summary = child<QLabel>("resumeSelection");
            EXPECT_LT(summary.minimumSizeHint().width(), 150) << "of many kinds: the panel need not widen";
        },
    });
}

TEST_F(PanelsTest, attributesAreChangedAndLockedLayersAreNot)
{
    AcDbObjectId reference, attribute;
    play({
        [&] {
            AcDbBlockReference* made = new AcDbBlockReference({5, 5, 0}, document().database()->currentSpaceId());
            const DrawingEdit step(document());
            made->setBlockTableRecord(addBlock(*document().database(), L"BORNE", {}));
            reference = ::add(made);
            {
                const AcDbObjectPointer<AcDbBlockReference> opened(reference, AcDb::kForWrite);
                auto* const text = new AcDbAttribute({6, 6, 0}, L"12", L"NUM");
                ASSERT_EQ(opened->appendAttribute(attribute, text), Acad::eOk);
                text->close();
            }
            select({reference});
        },
        [this] {
            EXPECT_EQ(valueOf("Bloc"), "BORNE");
            EXPECT_EQ(valueOf("NUM"), "12");
        },
        change("NUM", "13"),
        change("Position X", "15"),
        [&] {
            const AcDbObjectPointer<AcDbAttribute> read(attribute);
            EXPECT_STREQ(read->textStringConst(), L"13");
            EXPECT_EQ(read->position(), AcGePoint3d(16, 6, 0)) << "attributes move along";
        },
        [this] { clickLayer(0, LayerModel::locked); },
        [this] {
            whenDialog([](QDialog& dialog) { press(dialog, "OK"); });
            change("Position X", "99")();
        },
        [&] { EXPECT_EQ(AcDbObjectPointer<AcDbBlockReference>(reference)->position().x, 15); },
    });
}

TEST_F(PanelsTest, pointTablesFollowTheirProvider)
{
    twoTables() = TwoTables();
    QTableView& table = child<QTableView>("tablePoints");
    QComboBox& names = child<QComboBox>("listeTables");
    const auto cell = [&table](int row, int column) {
        return table.model()->index(row, column).data().toString().toStdString();
    };
    play({
        type("testligne"),
        key(Qt::Key_Escape),
        [&] {
            EXPECT_EQ(names.itemText(0), QStringLiteral("LEVE (courante)"));
            EXPECT_EQ(table.model()->rowCount(), 2);
            EXPECT_EQ(cell(1, 0), "S2");
            EXPECT_EQ(cell(1, 2), "10.000");
            EXPECT_EQ(cell(1, 4), "") << "an altitude that is not known";
            twoTables().points = 3;
        },
        type("testligne"),
        key(Qt::Key_Escape),
        [&] {
            EXPECT_EQ(table.model()->rowCount(), 3) << "read again when a command has ended";
            EXPECT_TRUE(DrawingChanges::instance().areUnsaved(document())) << "points are saved with the drawing";
            emit table.doubleClicked(table.model()->index(2, 0));
            EXPECT_EQ(CurrentView::get().center, AcGePoint2d(20.0, 20.5));
            names.setCurrentIndex(1);
            emit names.activated(1);
            EXPECT_EQ(cell(0, 0), "I1");
            child<QAbstractButton>("boutonTableCourante").click();
            EXPECT_EQ(twoTables().current(), 1);
            EXPECT_EQ(names.itemText(1), QStringLiteral("IMPLANTATION (courante)"));
            twoTables().second = QStringLiteral("BORNES");
            twoTables().points = 4;
            twoTables().setCurrent(0);
        },
        type("testligne"),
        key(Qt::Key_Escape),
        [&] { EXPECT_EQ(names.currentText(), QStringLiteral("LEVE (courante)")) << "of another drawing"; },
    });
}

TEST(PropertyTexts, numbersAreReadAsTyped)
{
    struct Row {
        const char* text;
        std::optional<double> value;
    };
    for (const Row& row : {Row{"12.5", 12.5},
                           {" 12,5 ", 12.5},
                           {"-1e3", -1000.0},
                           {"", std::nullopt},
                           {"12m", std::nullopt},
                           {"nan", std::nullopt},
                           {"1.2.3", std::nullopt}}) {
        double value = 99.0;
        const bool read = readNumber(QString::fromUtf8(row.text), value) == Acad::eOk;
        EXPECT_EQ(read, row.value.has_value()) << row.text;
        EXPECT_EQ(value, row.value.value_or(99.0)) << row.text;
    }
    EXPECT_EQ(numberText(1020.678), QStringLiteral("1020.678"));
    EXPECT_EQ(numberText(-0.0000001), QStringLiteral("0"));
    EXPECT_EQ(numberText(5.0), QStringLiteral("5"));
}

} // namespace
