#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "TLTranscript.h"
#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLModalAnswerer.h"
#include "hostkit/TLPluginLoader.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {

// What a session runs on: the plugin loaded as the host loads it, one map with its view, the
// host's buddy and dispatcher, the workspaces opened, and the answerer of modal dialogs. Every
// host event goes to the transcript.
class TLSession {
public:
    TLSession(TLTranscript& transcript, std::filesystem::path workdir);
    ~TLSession();

    // Loads the plugin and makes the map; false with the reason.
    bool Start(const std::string& pluginPath, std::string& error);
    // Deactivates the tool and lets everything go, without further record.
    void Stop();

    // A path of the script, relative to the working folder.
    std::filesystem::path Resolve(const std::string& path) const;
    // Null with the reason when the map has no such layer (or no feature layer of that name).
    TLLayer* Layer(const std::string& name, std::string& error) const;
    TLFeatureLayer* FeatureLayer(const std::string& name, std::string& error) const;
    // A tool of the plugin's pool by its class name, or by its place in the pool (from 1).
    TLTool* Tool(const std::string& name) const;

    // Puts the workspace's layers on the map, listening to their tables. The first layers with
    // a coordinate system give the map its system, and the view is fitted to them unless the
    // script chose what it shows.
    void AddWorkspace(std::unique_ptr<TMWorkspace> workspace);
    void SetViewChosen() { mViewChosen = true; }

    TLTranscript& Transcript() { return mTranscript; }
    TLMap* Map() const { return mMap.get(); }
    TLMapView* View() const { return mView.get(); }
    TLHostBuddy* Buddy() const { return mBuddy.get(); }
    TLToolDispatcher* Dispatcher() const { return mDispatcher.get(); }
    TLModalAnswerer& Answerer() { return mAnswerer; }

    double Tolerance() const { return mTolerance; }
    void SetTolerance(double tolerance) { mTolerance = tolerance; }
    // What the last event entry of a tool returned.
    bool LastResult() const { return mLastResult; }
    void SetLastResult(bool result) { mLastResult = result; }
    const TLModalAnswerer::Record* LastDialog() const;

private:
    TLTranscript& mTranscript;
    std::filesystem::path mWorkdir;
    TLModalAnswerer mAnswerer;
    // The plugin goes last: nothing may hold a tool when its code is unloaded.
    std::unique_ptr<TLPluginLoader> mLoader;
    TLRefPtr<TLMap> mMap;
    std::unique_ptr<TLMapView> mView;
    std::unique_ptr<TLHostBuddy> mBuddy;
    std::unique_ptr<TLToolDispatcher> mDispatcher;
    std::vector<std::unique_ptr<TMWorkspace>> mWorkspaces;
    double mTolerance = 1e-6;
    bool mLastResult = true;
    bool mViewChosen = false;
};

}  // namespace TMObjects
