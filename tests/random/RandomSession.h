#pragma once

#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {

// One seeded session of random events against the plugin's built tools on the demo GeoPackage's
// layers (points, lines, polygons, annotation): moves, presses, releases, double and right
// clicks, keys, typed sub-commands and numbers at the edges, undo, redo, tool and layer switches
// and saves. After every event the host's promises are checked: no editor operation left open,
// every shape in every layer finite and within the coordinate limit; at the end, undo back to the
// start gives the starting layers exactly. Shapes of another kind than their layer's are noted:
// the host takes them and refuses them at save.
class RandomSession {
public:
    // `data` is a fresh copy of the demo GeoPackage the session may change.
    RandomSession(unsigned seed, const std::string& data);
    ~RandomSession();

    // Plays `events` events; false with what broke, the event that broke it and the events
    // before it in `report`.
    bool Play(int events, std::string& report);
    // What the dispatcher caught (failures a tool is defined to end in), one line each.
    const std::vector<std::string>& Caught() const { return mCaught; }
    // Shapes of another kind than their layer's that a tool wrote, which the host takes and
    // refuses at save: "TOOL wrote a KIND into LAYER".
    const std::set<std::string>& OtherKinds() const { return mOtherKinds; }

private:
    using Layers = std::map<std::string, std::map<int, std::string>>;
    std::string step();
    std::string mouse();
    std::string typed();
    std::string pickTool();
    bool check(std::string& broken);
    Layers layers() const;

    std::mt19937 mRandom;
    std::unique_ptr<TMWorkspace> mWorkspace;
    TLRefPtr<TLMap> mMap;
    std::unique_ptr<TLMapView> mView;
    std::unique_ptr<TLHostBuddy> mBuddy;
    std::unique_ptr<TLToolDispatcher> mDispatcher;
    std::vector<TLFeatureLayer*> mLayers;
    std::vector<std::string> mCaught;
    std::vector<std::string> mLog;
    std::set<std::string> mOtherKinds;
    std::set<std::string> mSeenOther;
    std::string mTool;
};

}  // namespace TMObjects
