#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLPluginLoader.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"

namespace TMObjects {

// A map of 800 x 600 pixels showing map x 0..800, y 0..600 at one unit a pixel, the plugin
// loaded through its alias, and the host's buddy and dispatcher around it.
class SessionFixture : public ::testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
    void TearDown() override;

    // A memory layer inserted into the map.
    TLFeatureLayer* addLayer(const char* name, TLLayer::LayerType type, const char* crs = nullptr);
    void edit(TLFeatureLayer* layer);
    TLTool* poolTool(const char* className);
    void pick(const char* className);

    std::vector<std::string> messages() const;
    std::vector<std::string> prompts() const;
    std::string prompt() const { return buddy->Prompt().toStdString(); }
    // x, y of a point feature.
    std::pair<double, double> pointOf(TLFeatureLayer* layer, int id) const;

    static std::unique_ptr<TLPluginLoader> loader;
    TLRefPtr<TLMap> map;
    std::unique_ptr<TLMapView> view;
    std::unique_ptr<TLHostBuddy> buddy;
    std::unique_ptr<TLToolDispatcher> dispatcher;
    std::vector<std::string> failures;
};

}  // namespace TMObjects
