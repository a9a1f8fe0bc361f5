// The symbol library export and the SLD converter, driven through their dialogs.
#include <QApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include "SessionFixture.h"
#include "hostkit/TLModalAnswerer.h"
#include "tlmap/TLCategorizedSymbolRender.h"
#include "tlmap/TLRuleBasedSymbolRender.h"
#include "tlmap/TLSingleSymbolRender.h"
#include "tlmap/TLSpecifiedSymbolRender.h"
#include "tlsymbol/TLStyleLibraryFile.h"
#include "tlsymbol/TLStyleSimpleLine.h"
#include "tlsymbol/TLStyleSimplePoint.h"
#include "tlsymbol/TLStyleSystem.h"

namespace TMObjects {
namespace {

TLRefPtr<TLStyle> line(const char* name = "") {
    TLRefPtr<TLStyle> style(new TLStyleSimpleLine());
    style->SetName(TLString(name));
    return style;
}

TLRefPtr<TLStyle> marker(const char* name = "") {
    TLRefPtr<TLStyle> style(new TLStyleSimplePoint());
    style->SetName(TLString(name));
    return style;
}

class ExportTools : public SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        answerer.Start();
    }
    void TearDown() override {
        answerer.Stop();
        SessionFixture::TearDown();
    }
    QString path(const char* name) const { return dir.filePath(name); }
    // The names of the styles in the library file, in order; the reason when it is none.
    std::string libraryNames(const char* name) const {
        std::vector<TLRefPtr<TLStyle>> styles;
        TLString error;
        if (!TLStyleLibraryFile::Read(TLString(path(name).toStdString()), styles, error))
            return error.toStdString();
        std::string names;
        for (const TLRefPtr<TLStyle>& style : styles)
            names += (names.empty() ? "" : ", ") + style->GetName().toStdString();
        return names;
    }
    // roads drawn with one unnamed line; wells by category, the middle style named; a layer of
    // rules; parcels of specified symbols.
    void mapOfFourRenders() {
        addLayer("roads", TLLayer::LineLayer)->SetSymbolRender(new TLSingleSymbolRender(line()));
        TLRefPtr<TLCategorizedSymbolRender> kinds(new TLCategorizedSymbolRender("KIND"));
        kinds->AddItem(new TLCategoryRenderItem("deep", "Deep", marker()));
        kinds->AddItem(new TLCategoryRenderItem("dry", "Dry", marker("dry well")));
        kinds->AddItem(TLRefPtr<TLCategoryRenderItem>());
        kinds->AddItem(new TLCategoryRenderItem("new", "New", marker()));
        addLayer("wells", TLLayer::PointLayer)->SetSymbolRender(kinds);
        TLRefPtr<TLRuleBasedSymbolRender> rules(new TLRuleBasedSymbolRender());
        rules->AddRule(new TLSymbolRule("LANES > 2", "wide", line("wide road")));
        addLayer("streets", TLLayer::LineLayer)->SetSymbolRender(rules);
        TLRefPtr<TLSpecifiedSymbolRender> specified(new TLSpecifiedSymbolRender("SYMBOL"));
        specified->SetSymbol("A1", line());
        addLayer("ditches", TLLayer::LineLayer)->SetSymbolRender(specified);
    }
    const TLModalAnswerer::Record* record(const char* kind, size_t nth = 0) const {
        for (const TLModalAnswerer::Record& r : answerer.Records())
            if (r.kind == kind && nth-- == 0) return &r;
        return nullptr;
    }

    QTemporaryDir dir;
    TLModalAnswerer answerer;
};

TEST_F(ExportTools, StylesOfTheRendersGoToTheLibraryNamedAfterTheirLayers) {
    mapOfFourRenders();
    answerer.Queue(path("symbols").toStdString());
    answerer.Queue("OK");
    pick("TLToolExportRenderStyle");

    const TLModalAnswerer::Record* files = record("file dialog");
    ASSERT_NE(files, nullptr);
    EXPECT_EQ(files->title, "Please select path of symbol library");
    const TLModalAnswerer::Record* box = record("message box");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->title, "Information");
    EXPECT_EQ(box->text, "Export style successed!");
    // ".style" is added; the rule based render contributes nothing.
    EXPECT_EQ(libraryNames("symbols.style"),
              "roads_default_1, wells_default_1, dry well, wells_default_3, ditches_default_1");
    // The names stay on the layers' styles.
    auto* roads = dynamic_cast<TLFeatureLayer*>(map->GetLayers(true)[0].get());
    EXPECT_EQ(roads->GetRender()->GetStyles()[0]->GetName(), TLString("roads_default_1"));
    EXPECT_TRUE(failures.empty());
}

TEST_F(ExportTools, AnUpperCaseExtensionIsKeptAndASecondExportAppends) {
    addLayer("roads", TLLayer::LineLayer)->SetSymbolRender(new TLSingleSymbolRender(line("red")));
    answerer.Queue(path("a.STYLE").toStdString());
    answerer.Queue("OK");
    pick("TLToolExportRenderStyle");
    EXPECT_EQ(libraryNames("a.STYLE"), "red");
    EXPECT_FALSE(QFile::exists(path("a.STYLE.style")));

    addLayer("wells", TLLayer::PointLayer)->SetSymbolRender(new TLSingleSymbolRender(marker()));
    answerer.Queue(path("a.STYLE").toStdString());
    answerer.Queue("OK");
    pick("TLToolExportRenderStyle");
    EXPECT_EQ(libraryNames("a.STYLE"), "red, wells_default_1");
    EXPECT_EQ(record("message box", 1)->text, "Export style successed!");
}

TEST_F(ExportTools, AFileThatIsNoLibraryIsLeftAloneWithAMessage) {
    addLayer("roads", TLLayer::LineLayer);
    {
        QFile garbage(path("old.style"));
        ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
        garbage.write("not a library");
    }
    answerer.Queue(path("old.style").toStdString());
    pick("TLToolExportRenderStyle");
    EXPECT_EQ(buddy->Latest(TLHostEvent::Notice), TLString("Add symbol db failed!"));
    EXPECT_EQ(record("message box"), nullptr);
    QFile kept(path("old.style"));
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), "not a library");

    // A cancelled file dialog ends the command at once.
    answerer.Queue("cancel");
    pick("TLToolExportRenderStyle");
    EXPECT_EQ(record("message box"), nullptr);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"old.style"});
}

TEST_F(ExportTools, ConverterWritesEveryLayerToOneFileSoThatItHoldsTheLast) {
    mapOfFourRenders();
    const std::string target = path("map.sld").toStdString();
    answerer.QueueStep("expect", "pushButton_OpenOutpath", "SavePath");
    answerer.QueueStep("expect", "pushButton_ExecConvert", "Convert");
    answerer.QueueStep("click", "pushButton_OpenOutpath", "");
    answerer.Queue(target);
    answerer.QueueStep("expect", "lineEdit_Outpath", target);
    // Choosing a file makes the convert button checkable, and nothing else.
    answerer.QueueStep("expect", "pushButton_ExecConvert", "off");
    answerer.QueueStep("click", "pushButton_ExecConvert", "");
    answerer.Queue("OK");
    std::vector<std::string> problems;
    answerer.SetStepListener([&problems](const std::string& p) { problems.push_back(p); });
    pick("TLToolExportRenderSLDStyle");

    EXPECT_TRUE(problems.empty()) << problems.front();
    // The converter itself closes from its own slot; only the dialogs it opened were answered.
    ASSERT_EQ(answerer.Records().size(), 2u);
    const TLModalAnswerer::Record* files = record("file dialog");
    ASSERT_NE(files, nullptr);
    EXPECT_EQ(files->title, "请选择SLD文件保存路径");
    const TLModalAnswerer::Record* box = record("message box");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->title, "Info");
    EXPECT_EQ(box->text, "Convert Successed!");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the converter closed";

    QFile file(path("map.sld"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QDomDocument document;
    ASSERT_TRUE(document.setContent(&file, true));
    EXPECT_EQ(
        document.elementsByTagNameNS("http://www.opengis.net/sld", "Name").at(0).toElement().text(),
        "ditches");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"map.sld"});
}

TEST_F(ExportTools, ConvertWithoutAPathReportsSuccessAndWritesNothing) {
    addLayer("roads", TLLayer::LineLayer);
    const QString before = QDir::currentPath();
    QDir::setCurrent(dir.path());
    answerer.QueueStep("click", "pushButton_ExecConvert", "");
    answerer.Queue("OK");
    pick("TLToolExportRenderSLDStyle");
    QDir::setCurrent(before);
    const TLModalAnswerer::Record* box = record("message box");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text, "Convert Successed!");
    EXPECT_TRUE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

}  // namespace
}  // namespace TMObjects
