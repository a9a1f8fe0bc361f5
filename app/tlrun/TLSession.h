#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "TLScriptLayers.h"
#include "TLTranscript.h"
#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLModalAnswerer.h"
#include "hostkit/TLPluginLoader.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlsymbol/TLStyle.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {

// What a session runs on: the plugin loaded as the host loads it, one map with its view, the
// host's buddy and dispatcher, the workspaces opened, and the answerer of modal dialogs. Every
// host event goes to the transcript.
//
// A script is first gone through dry: each command reads its words and checks them against what
// the script will have (its layers, the plugin's tools) without doing anything, so that a script
// that cannot run is refused before its first event and before anything is written.
class TLSession {
public:
    TLSession(TLTranscript& transcript, std::filesystem::path workdir);
    ~TLSession();

    // Loads the plugin and makes the map; false with the reason.
    bool Start(const std::string& pluginPath, std::string& error);
    // Deactivates the tool and lets everything go, without further record.
    void Stop();

    bool Dry() const { return mDry; }
    void SetDry(bool dry) { mDry = dry; }
    TLScriptLayers& Known() { return mKnown; }
    // The styles the script made with `style`, by the ids it gave them.
    std::map<std::string, TLRefPtr<TLStyle>>& Styles() { return mStyles; }

    // A path of the script, relative to the working folder.
    std::filesystem::path Resolve(const std::string& path) const;
    // Whether the script has a layer of that name (a feature layer, when asked): in a dry pass
    // among the layers it will have, else on the map. False with the reason.
    bool HasLayer(const std::string& name, bool feature, std::string& error) const;
    // Null with the reason when the map has no such layer (or no feature layer of that name).
    TLLayer* Layer(const std::string& name, std::string& error) const;
    TLFeatureLayer* FeatureLayer(const std::string& name, std::string& error) const;
    // A tool of the plugin's pool: by its class name, by the name it registers under for typed
    // input (the host kit's tool table has both), or by its place in the pool (from 1). Null
    // when there is none.
    TLTool* Tool(const std::string& name) const;

    // Puts the workspace's layers on the map, listening to their tables. The first layers with
    // a coordinate system give the map its system, and the view is fitted to them unless the
    // script chose what it shows.
    void AddWorkspace(std::unique_ptr<TMWorkspace> workspace);
    // Puts a layer the script made on the map, listening to its table.
    void AddLayer(TLFeatureLayer* layer);
    void SetViewChosen() { mViewChosen = true; }
    // Fits the view to the map's layers, unless the script chose what it shows.
    void FitView();

    TLTranscript& Transcript() { return mTranscript; }
    TLMap* Map() const { return mMap.get(); }
    TLMapView* View() const { return mView.get(); }
    TLHostBuddy* Buddy() const { return mBuddy.get(); }
    TLToolDispatcher* Dispatcher() const { return mDispatcher.get(); }
    TLModalAnswerer& Answerer() { return mAnswerer; }

    // What the main entry of the last event returned.
    bool LastResult() const { return mLastResult; }
    void SetLastResult(bool result) { mLastResult = result; }
    // Why the session must stop although no expectation failed: a dialog answer that fitted no
    // button. Empty while all is well.
    const std::string& Trouble() const { return mTrouble; }
    void SetTrouble(const std::string& trouble) {
        if (mTrouble.empty()) mTrouble = trouble;
    }
    // The last message box shown since the action that began last (MarkEvent); null when that
    // action showed none, so that a box of an earlier action is not taken for this one's.
    const TLModalAnswerer::Record* LastBox() const;
    void MarkEvent() { mRecordsBefore = mAnswerer.Records().size(); }
    // The failure the dispatcher caught in the last event ("ENTRY: WHAT"), until a script
    // expects it. A script that goes on without expecting it stops there.
    const std::string& Caught() const { return mCaught; }
    void ClearCaught() { mCaught.clear(); }

private:
    void listen(TLFeatureLayer* layer);

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
    TLScriptLayers mKnown;
    std::map<std::string, TLRefPtr<TLStyle>> mStyles;
    bool mDry = false;
    bool mLastResult = true;
    bool mViewChosen = false;
    std::string mTrouble;
    std::string mCaught;
    std::size_t mRecordsBefore = 0;
};

}  // namespace TMObjects
