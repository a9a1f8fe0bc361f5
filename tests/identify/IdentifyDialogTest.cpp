#include <QComboBox>
#include <QDialog>
#include <QStandardItemModel>
#include <QTableView>

#include "IdentifySession.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlsde/TLFeatureStore.h"

namespace TMObjects {

namespace {

// A data source of the kind whose numbers always read with six decimals.
class AccessStore : public TLFeatureStore {
public:
    TLString GetWorkspaceType() const override { return "Access"; }
    TLString GetPath() const override { return "parcels.mdb"; }
    bool Commit(const TLFeatureTable&, const std::vector<TLFeatureChange>&,
                TLString& error) override {
        error = "read only";
        return false;
    }
};

class IdentifyDialog : public IdentifySession {
protected:
    QDialog* dialog() const {
        QWidget* combo = shown("mComboBoxLayers");
        return combo ? qobject_cast<QDialog*>(combo->window()) : nullptr;
    }
    QStringList headers() const {
        auto* table = qobject_cast<QTableView*>(shown("mTableViewAttribute"));
        QStringList words;
        for (int c = 0; table && c < table->model()->columnCount(); ++c)
            words << table->model()->headerData(c, Qt::Horizontal).toString();
        return words;
    }
    // A polygon of `rings` unit squares along the x axis and one square of side 100 at
    // (300, 0): its centroid lies far from the centre of its bound.
    int addIslands(TLFeatureLayer* layer, int rings) {
        TLRefPtr<TLGeoPolygon> polygon(new TLGeoPolygon);
        auto square = [&](double x, double y, double side) {
            polygon->BeginPath();
            polygon->BeginSegment(1);
            const double r[5][2] = {
                {x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}, {x, y}};
            for (const auto& p : r) polygon->AddXY(p[0], p[1]);
        };
        for (int i = 0; i < rings - 1; ++i) square(2.0 * i, 0, 1);
        square(300, 0, 100);
        polygon->EndEntity();
        TLFeature feature;
        feature.SetGeometry(polygon);
        return layer->GetDatasource()->Insert(feature);
    }
};

TEST_F(IdentifyDialog, TheDialogShowsItsWidgetsAndIsKeptUntilDeactivate) {
    auto* wells = addTable("wells", TLLayer::PointLayer, {"NAME:string"});
    addPoint(wells, 100, 100, {"NAME=W1"});
    clickAt(100, 100);
    QDialog* shownDialog = dialog();
    ASSERT_NE(shownDialog, nullptr);
    EXPECT_EQ(shownDialog->windowTitle(), "Identify");
    EXPECT_EQ(shownDialog->parentWidget(), mainWindow.get());
    // A dialog window with a close button and nothing else in its frame.
    const Qt::WindowFlags flags = shownDialog->windowFlags();
    EXPECT_EQ(flags & Qt::WindowType_Mask, Qt::Dialog);
    EXPECT_TRUE(flags & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(flags & (Qt::WindowMinMaxButtonsHint | Qt::WindowContextHelpButtonHint));
    EXPECT_FALSE(shownDialog->isModal());
    EXPECT_EQ(textOf("mLabelLayers"), "Layers");
    EXPECT_EQ(textOf("mLabelLocation"), "Location");
    EXPECT_EQ(textOf("mLabelUnits"), "UnknownUnit");
    EXPECT_FALSE(shown("mLineEditLocation")->isEnabled());
    QWidget* info = shown("textEdit_info");
    EXPECT_EQ(info->palette().color(QPalette::Disabled, QPalette::PlaceholderText),
              QColor(255, 0, 0));
    EXPECT_EQ(headers(), (QStringList{"Field", "Alias", "Value"}));
    // No display field: the root reads "layer:" and the feature rows are blank.
    EXPECT_EQ(treeRows(), (QStringList{"wells:", "  "}));

    shownDialog->move(400, 300);
    clickAt(500, 500);
    EXPECT_EQ(dialog(), shownDialog);  // refreshed in place, where the user left it
    EXPECT_EQ(shownDialog->pos(), QPoint(400, 300));
    shownDialog->close();
    clickAt(100, 100);
    EXPECT_EQ(dialog(), shownDialog);
    EXPECT_EQ(comboRows(), QStringList{"wells"});

    dispatcher->Deactivate();
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(IdentifyDialog, AMainWindowClosedFirstTakesTheDialogWithIt) {
    auto* wells = addTable("wells", TLLayer::PointLayer, {"NAME:string"});
    addPoint(wells, 100, 100, {"NAME=W1"});
    clickAt(100, 100);
    ASSERT_NE(dialog(), nullptr);
    mainWindow.reset();
    dispatcher->Deactivate();
    dispatcher->Activate(poolTool("TLToolIdentifyFeature"));
    clickAt(100, 100);
    EXPECT_EQ(comboRows(), QStringList{"wells"});
}

TEST_F(IdentifyDialog, ValuesReadAsFormattedAndSystemFieldsAreLeftOut) {
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:4326"));
    auto* parcels = addTable("parcels", TLLayer::PointLayer,
                             {"NAME:string", "AREA:double:4", "RATIO:float:2", "WHOLE:double:0",
                              "LOOMDB_FLAG:string", "NOTE:double:3"});
    parcels->set_display_field("NAME");
    addPoint(parcels, 100, 100,
             {"NAME=P1", "AREA=2.5", "RATIO=0.25", "WHOLE=100", "LOOMDB_FLAG=x"});
    clickAt(100, 100);
    EXPECT_EQ(textOf("mLabelUnits"), "Degrees");
    EXPECT_EQ(tableRows(), (QStringList{"NAME|NAME|P1", "AREA|AREA|2.5", "RATIO|RATIO|0.25",
                                        "WHOLE|WHOLE|1", "NOTE|NOTE|"}));
}

TEST_F(IdentifyDialog, ClickingAFeatureRefreshesTheValuesRowByRowAsTheFieldsStand) {
    auto* parcels =
        addTable("parcels", TLLayer::PolygonLayer,
                 {"NAME:string", "LOOMDB_FLAG:string", "AREA:double:4", "NOTE:double:3"});
    parcels->set_display_field("NAME");
    addSquare(parcels, 100, 100, 20, {"NAME=P1", "AREA=2.5", "NOTE=1"});
    addSquare(parcels, 140, 100, 20, {"NAME=P2", "LOOMDB_FLAG=x", "AREA=3.25"});
    dragFromTo(90, 90, 170, 130);
    EXPECT_EQ(treeRows(), (QStringList{"parcels:NAME", "  P1", "  P2"}));
    EXPECT_EQ(tableRows(), (QStringList{"NAME|NAME|P1", "AREA|AREA|2.5", "NOTE|NOTE|1"}));

    clickFeatureRow(1);
    // The hidden LOOMDB_ field still takes a row, so the values below it move one row down,
    // and the null NOTE reads as the zero it holds.
    EXPECT_EQ(tableRows(), (QStringList{"NAME|NAME|P2", "AREA|AREA|x", "NOTE|NOTE|3.25", "||0"}));
    EXPECT_EQ(textOf("mLineEditLocation"), "150.000000,110.000000");
    ASSERT_EQ(flashes.bounds.size(), 4u);
    // Crosses from the edges of the view onto the centroid, then the feature itself.
    EXPECT_EQ(flashes.bounds[0], TLRect(0, 800, 0, 600));
    EXPECT_EQ(flashes.bounds[1],
              TLRect(150 - 0.66 * 150, 150 + 0.66 * 650, 110 - 0.66 * 110, 110 + 0.66 * 490));
    EXPECT_EQ(flashes.bounds[2],
              TLRect(150 - 0.33 * 150, 150 + 0.33 * 650, 110 - 0.33 * 110, 110 + 0.33 * 490));
    EXPECT_EQ(flashes.bounds[3], TLRect(140, 160, 100, 120));

    // The feature already shown is flashed again, and its table left alone.
    clickFeatureRow(1);
    EXPECT_EQ(flashes.bounds.size(), 8u);
    EXPECT_EQ(tableRows(), (QStringList{"NAME|NAME|P2", "AREA|AREA|x", "NOTE|NOTE|3.25", "||0"}));
    clickFeatureRow(-1);  // the root row does nothing
    EXPECT_EQ(flashes.bounds.size(), 8u);
    expectNothingChanged({parcels}, 2);
}

TEST_F(IdentifyDialog, FeatureZeroIsRefreshedOnEveryClick) {
    auto* marks = addTable("marks", TLLayer::PointLayer, {"NAME:string", "DEPTH:double:2"});
    marks->set_display_field("NAME");
    TLFeature zero;
    zero.SetId(0);
    zero.SetGeometry(TLRefPtr<TLGeometry>(new TLGeoPoint(100, 100)));
    zero.SetValue("NAME", TLVariant(TLString("M0")));
    ASSERT_EQ(marks->GetDatasource()->Insert(zero), 0);
    addPoint(marks, 300, 300, {"NAME=M1"});

    clickAt(100, 100);
    EXPECT_EQ(tableRows(), (QStringList{"NAME|NAME|M0", "DEPTH|DEPTH|"}));
    clickFeatureRow(0);
    EXPECT_EQ(tableRows(), (QStringList{"NAME|NAME|M0", "DEPTH|DEPTH|0"}));

    clickAt(300, 300);
    clickFeatureRow(0);  // id 1, already shown: its null stays blank
    EXPECT_EQ(tableRows(), (QStringList{"NAME|NAME|M1", "DEPTH|DEPTH|"}));
}

TEST_F(IdentifyDialog, ALayerShownAgainDirectlyStaysEmpty) {
    auto* wells = addTable("wells", TLLayer::PointLayer, {"NAME:string"});
    addPoint(wells, 100, 100, {"NAME=W1"});
    clickAt(100, 100);
    auto* combo = qobject_cast<QComboBox*>(shown("mComboBoxLayers"));
    ASSERT_NE(combo, nullptr);
    Q_EMIT combo->currentIndexChanged(0);
    EXPECT_TRUE(treeRows().isEmpty());
    EXPECT_TRUE(tableRows().isEmpty());
    EXPECT_EQ(placeholder(), "No elements are selected on this layer");
}

TEST_F(IdentifyDialog, AnAccessLayerReadsSixDecimals) {
    TLFields fields;
    fields.AddField("AREA", TLField::FieldDouble, 0, 2);
    TLRefPtr<TLFeatureTable> table(
        new TLFeatureTable("parcels", fields, std::make_unique<AccessStore>()));
    auto* parcels = new TLFeatureLayer("parcels", TLLayer::PointLayer, table, nullptr);
    map->InsertLayer(-1, parcels, true);
    addPoint(parcels, 100, 100, {"AREA=1.23456789"});
    clickAt(100, 100);
    EXPECT_EQ(tableRows(), QStringList{"AREA|AREA|1.234568"});
}

TEST_F(IdentifyDialog, APolygonOfManyRingsIsFlashedAtTheCentreOfItsBound) {
    auto* islands = addTable("islands", TLLayer::PolygonLayer, {"NAME:string"});
    addIslands(islands, 19);
    addIslands(islands, 20);
    clickAt(350, 50);
    ASSERT_EQ(treeRows().size(), 3);

    clickFeatureRow(1);  // twenty rings: the centre of the bound (0..400, 0..100)
    ASSERT_EQ(flashes.bounds.size(), 4u);
    EXPECT_EQ(textOf("mLineEditLocation"), "200.000000,50.000000");
    clickFeatureRow(0);  // nineteen: the centroid, near the big square
    const QStringList xy = textOf("mLineEditLocation").split(',');
    EXPECT_GT(xy.value(0).toDouble(), 340.0);
}

}  // namespace

}  // namespace TMObjects
