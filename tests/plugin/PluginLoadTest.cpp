#include <cxxabi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <boost/dll/import.hpp>
#include <boost/dll/library_info.hpp>
#include <cstdlib>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tlbase/TLPlugin.h"
#include "tlmap/TLCMDPool.h"
#include "tlmap/TLTool.h"

namespace {

using namespace TMObjects;
using Factory = TLRefPtr<TLPlugin>();

// The classes in the order the host's pool must hold them.
const std::array<const char*, 66> kToolClasses = {
    "TLToolMeasureAngle",
    "TLToolMeasureArea",
    "TLToolMeasureGirth",
    "TLToolMeasureLine",
    "TLToolEditPoint",
    "TLToolEditLine",
    "TLToolCollectCut",
    "TLToolExtension",
    "TLToolInterrupt",
    "TLCmdDigitizeLine",
    "TLCmdDigitizePoint",
    "TLCmdDigitizePolygon",
    "TLCmdDigitizeCompoundGraphics",
    "TLCmdDigitizeFreehandRectangle",
    "TLCmdDigitizeRectangle",
    "TLCmdDigitizeRegularPolygon",
    "TLCmdDigitizeSquare",
    "TLCmdDigitizeRightDoubleLine",
    "TLCmdDigitizeLeftDoubleLine",
    "TLCmdDigitizeTripleParallelLine",
    "TLCmdDigitizeArc",
    "TLCmdDigitizeArrow",
    "TLCmdDigitizeCircle",
    "TLCmdDigitizeEllipse",
    "TLCmdDigitizeFlag",
    "TLCmdDigitizeRing",
    "TLDigitizeStreamLine",
    "TLDigitizeOffsetDistance",
    "TLDigitizeParallelLine",
    "TLDigitizeVerticalDistance",
    "TLDigitizeMicroTraverse",
    "TLDigitizeDirectionIntersection",
    "TLDigitizeForwardIntersection",
    "TLDigitizeSideIntersection",
    "TLDigitizeBackwardIntersection",
    "TLToolViewPixelVal",
    "TLToolPixelInspector",
    "TLToolIdentifyFeature",
    "TLToolIdentifyRoute",
    "TLToolBisectingLine",
    "TLToolEditAttributes",
    "TLToolAddAnnotation",
    "TLToolEditAnnotation",
    "TLToolAdvancedEditAnnotation",
    "TLToolAdvancedMoveAnnotation",
    "TLToolPartCopy",
    "TLToolPartConnect",
    "TLToolPartOffset",
    "TLToolWholeOffset",
    "TLAspectCalculation",
    "TLSlopeCalculation",
    "TLSurfaceAreaMeasurement",
    "TLMeasurementForSurfaceDistance",
    "TLImageLocalModify",
    "TLToolEdgeMatching",
    "TLToolCopyBlock",
    "TLToolShieldRectangle",
    "TLToolShieldPolygon",
    "TLToolShieldSelection",
    "TLToolShieldAreasClear",
    "TLToolExportRenderStyle",
    "TLToolExportRenderSLDStyle",
    "TLToolImageSampleCollect",
    "TLToolPolygonCutPolygon",
    "TmToolImgSemiAutoRecog",
    "TLToolDoubleLine",
};
constexpr int kToolCount = int(kToolClasses.size());

std::string Demangle(const char* mangled) {
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> name(
        abi::__cxa_demangle(mangled, nullptr, nullptr, &status), std::free);
    return status == 0 ? std::string(name.get()) : std::string(mangled);
}

std::string ClassOf(TLTool* tool) {
    return Demangle(typeid(*tool).name());
}

// Reads the buddy pointer of any tool, as the pool's tools hide it from the host.
struct BuddyOf : TLTool {
    static TLToolBuddy* Get(TLTool* tool) { return tool->*(&BuddyOf::mBuddy); }
};

class PluginLibrary : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(TLCMDPool::GetInstance()->GetToolCount(), 0);
        // import_alias keeps the library loaded for as long as the function object lives.
        factory = boost::dll::import_alias<Factory>(boost::dll::fs::path(kLibrary), "GetTMPlugIn");
    }

    // The tools' code lives in the library: empty the pool and let the plugins go before the
    // last handle on the library does.
    void TearDown() override {
        TLCMDPool::GetInstance()->Clear();
        plugins.clear();
        factory = nullptr;
    }

    TLPlugin* LoadAndInit() {
        plugins.push_back(factory());
        TLPlugin* plugin = plugins.back().get();
        if (plugin) plugin->InitPlugin();
        return plugin;
    }

    static constexpr const char* kLibrary = TL_PLUGIN_LIBRARY_PATH;
    std::function<Factory> factory;
    std::vector<TLRefPtr<TLPlugin>> plugins;
};

TEST_F(PluginLibrary, FactoryMakesThePluginWithItsIdentity) {
    TLRefPtr<TLPlugin> plugin = factory();
    ASSERT_TRUE(plugin);
    // The factory's reference went into the result and nothing else holds one.
    EXPECT_EQ(plugin->RefCount(), 1);
    EXPECT_EQ(plugin->GetType(), 1);
    EXPECT_EQ(plugin->GetCategory(), TLString("tool"));
    EXPECT_EQ(plugin->GetName(), TLString("actionex"));
    EXPECT_EQ(plugin->GetVersion(), TLString("0.1"));
    EXPECT_EQ(plugin->GetDescription(), TLString(""));
    EXPECT_TRUE(plugin->IsDll());
    EXPECT_EQ(Demangle(typeid(*plugin).name()), "TMObjects::TLPluginActionEX");
    // Making the plugin registers nothing yet.
    EXPECT_EQ(TLCMDPool::GetInstance()->GetToolCount(), 0);
}

TEST_F(PluginLibrary, InitPluginRegistersEveryToolOnceInTableOrder) {
    ASSERT_NE(LoadAndInit(), nullptr);
    TLCMDPool* pool = TLCMDPool::GetInstance();
    ASSERT_EQ(pool->GetToolCount(), kToolCount);

    // What a tool keeps of the base unless it says otherwise.
    TLTool base;
    for (int i = 0; i < kToolCount; ++i) {
        TLTool* tool = pool->GetTool(i);
        ASSERT_NE(tool, nullptr) << "order " << i + 1;
        const std::string expected = std::string("TMObjects::") + kToolClasses[std::size_t(i)];
        EXPECT_EQ(ClassOf(tool), expected) << "order " << i + 1;
        // The registration's temporary reference is gone: only the pool's is left.
        EXPECT_EQ(tool->RefCount(), 1) << expected;
        EXPECT_FALSE(tool->isActive()) << expected;
        EXPECT_EQ(tool->flags().value(), base.flags().value()) << expected;

        const std::string name = kToolClasses[std::size_t(i)];
        if (name == "TLToolExportRenderStyle" || name == "TLToolExportRenderSLDStyle")
            EXPECT_EQ(tool->getName(), TLString(name)) << expected;
        else
            EXPECT_EQ(tool->getName(), base.getName()) << expected;

        if (name == "TLToolShieldSelection" || name == "TLToolShieldAreasClear" ||
            name == "TLToolExportRenderStyle" || name == "TLToolExportRenderSLDStyle")
            EXPECT_TRUE(tool->IsCmd()) << expected;
        else if (name == "TLToolPolygonCutPolygon")
            EXPECT_FALSE(tool->IsCmd()) << expected;
        else
            EXPECT_EQ(tool->IsCmd(), base.IsCmd()) << expected;
    }

    // Every entry is a tool of its own.
    std::vector<TLTool*> tools;
    for (int i = 0; i < kToolCount; ++i) tools.push_back(pool->GetTool(i));
    std::sort(tools.begin(), tools.end());
    EXPECT_EQ(std::adjacent_find(tools.begin(), tools.end()), tools.end());
}

TEST_F(PluginLibrary, SecondFactoryCallAndInitPluginRegisterTheToolsAgain) {
    TLPlugin* first = LoadAndInit();
    TLPlugin* second = LoadAndInit();
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);

    TLCMDPool* pool = TLCMDPool::GetInstance();
    ASSERT_EQ(pool->GetToolCount(), 2 * kToolCount);
    for (int i = 0; i < kToolCount; ++i) {
        TLTool* earlier = pool->GetTool(i);
        TLTool* later = pool->GetTool(i + kToolCount);
        EXPECT_NE(earlier, later);
        EXPECT_EQ(ClassOf(later), ClassOf(earlier)) << "order " << i + 1;
        EXPECT_EQ(later->RefCount(), 1) << ClassOf(later);
    }
}

TEST_F(PluginLibrary, ToolsNeverActivatedHaveNoBuddyAndIgnoreEvents) {
    ASSERT_NE(LoadAndInit(), nullptr);
    TLCMDPool* pool = TLCMDPool::GetInstance();
    ASSERT_EQ(pool->GetToolCount(), kToolCount);

    for (int i = 0; i < kToolCount; ++i) {
        TLTool* tool = pool->GetTool(i);
        const std::string name = ClassOf(tool);
        EXPECT_EQ(BuddyOf::Get(tool), nullptr) << name;
        // Without a buddy there is no view or map to reach: each entry has to return at once.
        tool->OnMouseMove(TLLeftButton, 10, 20);
        tool->OnMouseDown(TLLeftButton, 10, 20);
        tool->OnMouseUp(TLLeftButton, 10, 20);
        tool->OnDblClick(TLLeftButton, 10, 20);
        tool->OnMouseDown(TLRightButton, 10, 20);
        tool->OnKeyDown(0x01000000);  // Escape
        EXPECT_EQ(BuddyOf::Get(tool), nullptr) << name;
        EXPECT_FALSE(tool->isActive()) << name;
        EXPECT_EQ(tool->RefCount(), 1) << name;
    }
    EXPECT_EQ(pool->GetToolCount(), kToolCount);
}

TEST(PluginLibraryFile, ExportsTheFactoryAliasAndTheFrameworkClassesOnly) {
    boost::dll::library_info info(boost::dll::fs::path(TL_PLUGIN_LIBRARY_PATH));
    const std::vector<std::string> aliases = info.symbols("boostdll");
    EXPECT_NE(std::find(aliases.begin(), aliases.end(), "GetTMPlugIn"), aliases.end());

    // What the host may bind to: the alias and the framework's classes. Anything else would let
    // the library's private copies (Boost's among them) collide with the host's.
    std::set<std::string> exported;
    for (const std::string& symbol : info.symbols()) {
        if (symbol == "GetTMPlugIn") continue;
        const std::string name = Demangle(symbol.c_str());
        exported.insert(name);
        const bool framework = name.rfind("TMObjects::", 0) == 0 ||
                               name.rfind("typeinfo for TMObjects::", 0) == 0 ||
                               name.rfind("typeinfo name for TMObjects::", 0) == 0 ||
                               name.rfind("vtable for TMObjects::", 0) == 0;
        EXPECT_TRUE(framework) << name;
    }

    // Code that links a tool class needs its type information and virtual table as well.
    std::vector<std::string> classes(kToolClasses.begin(), kToolClasses.end());
    classes.insert(classes.end(), {"TLPluginActionEX", "TLToolShieldAreas", "TLToolEditFeature"});
    for (const std::string& cls : classes) {
        EXPECT_EQ(exported.count("typeinfo for TMObjects::" + cls), 1u) << cls;
        EXPECT_EQ(exported.count("vtable for TMObjects::" + cls), 1u) << cls;
        const std::string member = "TMObjects::" + cls + "::";
        EXPECT_EQ(exported.count(member + cls + "()"), 1u) << cls;
        EXPECT_EQ(exported.count(member + "~" + cls + "()"), 1u) << cls;
        // A host that gives a tool its buddy at construction links the second constructor.
        if (cls != "TLPluginActionEX") {
            EXPECT_EQ(exported.count(member + cls + "(TMObjects::TLToolBuddy*)"), 1u) << cls;
        }
    }
}

}  // namespace
