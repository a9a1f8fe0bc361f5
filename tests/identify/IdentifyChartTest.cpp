#include <QApplication>
#include <QTimer>
#include <QTreeWidget>

#include "IdentifySession.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlmap/TLENCLayer.h"

namespace TMObjects {

namespace {

class IdentifyChart : public IdentifySession {
protected:
    void SetUp() override {
        IdentifySession::SetUp();
        wells = addTable("wells", TLLayer::PointLayer, {"NAME:string"});
        addPoint(wells, 100, 100, {"NAME=W1"});
        chart = new TLENCLayer("chart", nullptr);
        chart->SetHitTolerance(3);
    }
    void TearDown() override {
        if (!chart->GetMap()) TLRefPtr<TLLayer> drop(chart);
        IdentifySession::TearDown();
    }

    void addObject(int primitive, const char* acronym, const char* name, TLGeometry* geometry,
                   std::vector<TLEncObjectAttribute> attributes = {}) {
        auto object = std::make_unique<s57object>();
        object->primitive = primitive;
        object->acronym = acronym;
        object->className = name;
        object->attributes = std::move(attributes);
        object->geometry = TLRefPtr<TLGeometry>(geometry);
        ASSERT_TRUE(chart->AddObject(std::move(object)));
    }

    static TLGeoPolygon* square(double x, double y, double side) {
        auto* polygon = new TLGeoPolygon;
        polygon->BeginPath();
        polygon->BeginSegment(1);
        const double r[5][2] = {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}, {x, y}};
        for (const auto& p : r) polygon->AddXY(p[0], p[1]);
        polygon->EndEntity();
        return polygon;
    }

    // Clicks at the point and reads the rows of the modal object dialog before closing it:
    // each row as its two texts, indented by its depth.
    QStringList objectRowsAfterClick(double x, double y) {
        QStringList rows;
        bool opened = false;
        QTimer::singleShot(0, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            auto* tree = modal ? modal->findChild<QTreeWidget*>("mTreeWidget") : nullptr;
            opened = tree != nullptr;
            for (int i = 0; tree && i < tree->topLevelItemCount(); ++i)
                collect(tree->topLevelItem(i), 0, rows);
            if (modal) modal->close();
        });
        clickAt(x, y);
        EXPECT_TRUE(opened) << "no object dialog";
        return rows;
    }
    static void collect(QTreeWidgetItem* item, int depth, QStringList& rows) {
        rows << QString(depth * 2, ' ') + item->text(0) + "|" + item->text(1);
        for (int i = 0; i < item->childCount(); ++i) collect(item->child(i), depth + 1, rows);
    }

    TLFeatureLayer* wells = nullptr;
    TLENCLayer* chart = nullptr;
};

TEST_F(IdentifyChart, AChartOnTheMapShowsItsObjectsInsteadOfTheFeatures) {
    addObject(0, "BOYLAT", "Buoy, lateral", new TLGeoPoint(101, 100),
              {{"OBJNAM", "Red 4"}, {"COLOUR", ""}, {"", "3"}, {"BOYSHP", "2"}});
    addObject(2, "DEPARE", "Depth area", square(50, 50, 100), {{"DRVAL1", "5"}});
    addObject(1, "COALNE", "Coastline", new TLGeoPoint(300, 300));
    addObject(7, "M_COVR", "Coverage", square(0, 0, 800));
    map->InsertLayer(-1, chart, true);  // after the feature layer, which is asked first

    const QStringList rows = objectRowsAfterClick(100, 100);
    EXPECT_EQ(rows, (QStringList{"Point|Attribute", "  Buoy, lateral|", "    OBJNAM|Red 4",
                                 "    BOYSHP|2", "Area|Attribute", "  Depth area|", "    DRVAL1|5",
                                 "Line|Attribute"}));
    EXPECT_EQ(shown("mComboBoxLayers"), nullptr);
    EXPECT_TRUE(wells->GetSelectedIds().empty());
    expectNothingChanged({wells}, 1);
}

TEST_F(IdentifyChart, AChartWithoutObjectsLeavesTheIdentifyDialog) {
    map->InsertLayer(0, chart, true);
    clickAt(100, 100);
    EXPECT_EQ(comboRows(), QStringList{"wells"});
}

TEST_F(IdentifyChart, ChartHitsFollowTheMapsSystem) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:3857"));
    chart->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:4326"));
    chart->SetHitTolerance(0.0001);
    addObject(0, "LIGHTS", "Light", new TLGeoPoint(0.001, 0.001));
    map->InsertLayer(-1, chart, true);
    EXPECT_EQ(chart->hitTest(111.32, 111.32).size(), 1u);
    EXPECT_TRUE(chart->hitTest(150, 150).empty());
    std::string acronym, name;
    std::vector<TLEncObjectAttribute> attributes;
    EXPECT_FALSE(chart->GetObjectAttributes(acronym, nullptr, name, attributes));
    EXPECT_TRUE(
        chart->GetObjectAttributes(acronym, chart->hitTest(111.32, 111.32)[0], name, attributes));
    EXPECT_EQ(acronym + "/" + name, "LIGHTS/Light");
}

}  // namespace

}  // namespace TMObjects
