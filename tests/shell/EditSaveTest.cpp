// Edits reach the file only through Save Edits, and closing with unsaved edits asks first:
// saving, discarding or staying are the user's choice, never a silent loss.

#include <QAction>
#include <QTest>

#include "ShellFixture.h"
#include "ShellTestData.h"
#include "TLShellDocument.h"
#include "hostkit/TLModalAnswerer.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {

class EditSaveTest : public ShellFixture {
    Q_OBJECT

private:
    // The features the file holds now, read afresh.
    int storedCount(const char* layerName) const {
        TLString error;
        std::unique_ptr<TMWorkspace> workspace =
            TMWorkspace::Open(TLString(dataPath.toStdString()), false, error);
        if (!workspace) return -1;
        auto* read = dynamic_cast<TLFeatureLayer*>(workspace->GetLayer(TLString(layerName)).get());
        return read ? read->GetDatasource()->GetFeatureCount() : -1;
    }

    void addWell() {
        pickFromPalette("TLCmdDigitizePoint");
        typeLine("640,480");
        QCOMPARE(layer("wells")->GetDatasource()->GetFeatureCount(), 4);
    }

    TLModalAnswerer answerer;

private Q_SLOTS:
    void initTestCase() { answerer.Start(); }
    void cleanupTestCase() { answerer.Stop(); }
    void init() {
        openShell();
        answerer.ClearQueue();
    }
    void cleanup() { closeShell(); }

    void saveEditsWritesTheFileAndClearsTheMark() {
        QAction* save = menuAction("&Edit", "&Save Edits");
        QVERIFY(save);
        QCOMPARE(menuAction("&File", "&Save Edits"), save);
        QVERIFY(!save->isEnabled());
        addWell();
        QVERIFY(window->isWindowModified());
        QVERIFY(save->isEnabled());
        QCOMPARE(storedCount("wells"), 3);
        save->trigger();
        QCOMPARE(storedCount("wells"), 4);
        QVERIFY(!window->isWindowModified());
        QVERIFY(!save->isEnabled());
    }

    void undoingEveryEditLeavesNothingToSave() {
        addWell();
        window->UndoAction()->trigger();
        QVERIFY(!window->Document()->HasUnsavedEdits());
        QVERIFY(window->close());
        QCOMPARE(int(answerer.Records().size()), 0);
    }

    void undoingAChangeToAStoredFeatureLeavesNothingToSave() {
        // A value written as the attribute editor writes it: a step of its own.
        TLFeatureLayer* wells = layer("wells");
        QVERIFY(wells->layer_edit_buffer()->ChangeAttribute(1, "name", TLVariant(TLString("moved")),
                                                            true));
        QVERIFY(window->isWindowModified());
        window->UndoAction()->trigger();
        QVERIFY(!window->isWindowModified());
        QVERIFY(!window->SaveAction()->isEnabled());
        window->RedoAction()->trigger();
        QVERIFY(window->isWindowModified());
        window->UndoAction()->trigger();
        QVERIFY(window->close());
        QCOMPARE(int(answerer.Records().size()), 0);
    }

    void undoingASavedEditMarksTheWindowAgain() {
        addWell();
        window->SaveAction()->trigger();
        QVERIFY(!window->isWindowModified());
        window->UndoAction()->trigger();
        // The file still holds the well the user took back.
        QVERIFY(window->isWindowModified());
        QCOMPARE(storedCount("wells"), 4);
        answerer.Queue("Save");
        QVERIFY(window->close());
        QCOMPARE(int(answerer.Records().size()), 1);
        QCOMPARE(storedCount("wells"), 3);
    }

    void closingWithUnsavedEditsAsksAndCancelKeepsTheWindow() {
        addWell();
        const std::size_t before = answerer.Records().size();
        answerer.Queue("Cancel");
        QVERIFY(!window->close());
        QVERIFY(window->isVisible());
        QCOMPARE(answerer.Records().size(), before + 1);
        const TLModalAnswerer::Record& asked = answerer.Records().back();
        QCOMPARE(asked.kind, std::string("message box"));
        QCOMPARE(asked.title, std::string("Unsaved Edits"));
        QVERIFY(asked.text.find("wells") != std::string::npos);
        QCOMPARE(asked.answer, std::string("Cancel"));
        QCOMPARE(storedCount("wells"), 3);
    }

    void closingAndSavingWritesTheEdits() {
        addWell();
        answerer.Queue("Save");
        QVERIFY(window->close());
        QCOMPARE(storedCount("wells"), 4);
    }

    void closingAndDiscardingLeavesTheFileAsItWas() {
        addWell();
        answerer.Queue("Discard");
        QVERIFY(window->close());
        QCOMPARE(storedCount("wells"), 3);
    }

    void shapefilesAndGeoJsonOpenAndSaveLikeGeoPackages_data() {
        QTest::addColumn<QString>("driver");
        QTest::addColumn<QString>("file");
        QTest::newRow("Shapefile") << "ESRI Shapefile"
                                   << "wells.shp";
        QTest::newRow("GeoJSON") << "GeoJSON"
                                 << "wells.geojson";
    }

    void shapefilesAndGeoJsonOpenAndSaveLikeGeoPackages() {
        QFETCH(QString, driver);
        QFETCH(QString, file);
        closeShell();
        folder = std::make_unique<QTemporaryDir>();
        dataPath = ShellTestData::WriteWells(folder->path(), driver.toUtf8().constData(),
                                             file.toUtf8().constData());
        QVERIFY(!dataPath.isEmpty());
        window = std::make_unique<TLShellWindow>();
        window->show();
        QVERIFY(window->OpenData(dataPath));
        QCOMPARE(window->Document()->Map()->GetLayerCount(), 1);
        QCOMPARE(window->Document()->Map()->editor()->edit_layer(),
                 static_cast<TLLayer*>(layer("wells")));
        addWell();
        window->SaveAction()->trigger();
        QCOMPARE(storedCount("wells"), 4);
    }

    void aSourceThatCannotBeOpenedIsReported() {
        const std::size_t before = answerer.Records().size();
        answerer.Queue("OK");
        QVERIFY(!window->OpenData(folder->path() + "/missing.gpkg"));
        QCOMPARE(answerer.Records().size(), before + 1);
        QVERIFY(answerer.Records().back().text.find("missing.gpkg") != std::string::npos);
        QCOMPARE(window->Document()->Map()->GetLayerCount(), 3);
    }
};

SHELL_TEST_CLASS(EditSaveTest);

}  // namespace TMObjects

#include "EditSaveTest.moc"
