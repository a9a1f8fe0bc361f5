#include "TLSession.h"

#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLToolTable.h"
#include "tlmap/TLCMDPool.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

TLSession::TLSession(TLTranscript& transcript, std::filesystem::path workdir)
    : mTranscript(transcript), mWorkdir(std::move(workdir)) {}

TLSession::~TLSession() {
    Stop();
}

bool TLSession::Start(const std::string& pluginPath, std::string& error) {
    mLoader = std::make_unique<TLPluginLoader>();
    if (!mLoader->Load(pluginPath)) {
        error = mLoader->Error();
        return false;
    }
    mMap = TLRefPtr<TLMap>(new TLMap);
    mMap->editor()->AddListener(&mTranscript);
    mView = std::make_unique<TLMapView>(mMap);
    mView->SetDeviceSize(800, 600);
    mBuddy = std::make_unique<TLHostBuddy>(mView.get());
    mBuddy->AddListener([this](const TLHostEvent& event) { mTranscript.HostEvent(event); });
    mDispatcher = std::make_unique<TLToolDispatcher>(mBuddy.get());
    mDispatcher->SetFailureListener([this](const std::string& what, const std::string& entry) {
        mTranscript.Event("exception", entry + ": " + what);
        mCaught = entry + ": " + what;
    });
    // What a dialog's slot throws is caught by the application and told as the dispatcher's.
    TLGuardedApplication::SetFailureHandler(
        [this](const std::string& what) { mDispatcher->ReportFailure("dialog", what); });
    mAnswerer.SetListener([this](const TLModalAnswerer::Record& record) {
        mTranscript.Dialog(record);
        if (!record.matched)
            SetTrouble("expected a button that fits the answer given, got none in \"" +
                       record.title + "\"");
    });
    mAnswerer.SetStepListener([this](const std::string& problem) { SetTrouble(problem); });
    mAnswerer.Start();
    // Snapping starts off, as in a fresh desktop session; a script switches it on.
    TLSnapEnvironment::Instance()->setEnabled(false);
    return true;
}

void TLSession::Stop() {
    mTranscript.Mute();
    TLGuardedApplication::SetFailureHandler(nullptr);
    mAnswerer.Stop();
    mDispatcher.reset();
    if (mMap) {
        for (const auto& layer : mMap->GetLayers(true))
            if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
                features->GetDatasource()->RemoveListener(&mTranscript);
        mMap->editor()->RemoveListener(&mTranscript);
    }
    mBuddy.reset();
    mView.reset();
    mMap.reset();
    mWorkspaces.clear();
    mLoader.reset();
}

std::filesystem::path TLSession::Resolve(const std::string& path) const {
    const std::filesystem::path given(path);
    return given.is_absolute() ? given : mWorkdir / given;
}

bool TLSession::HasLayer(const std::string& name, bool feature, std::string& error) const {
    if (!mDry)
        return feature ? FeatureLayer(name, error) != nullptr : Layer(name, error) != nullptr;
    const TLScriptLayers::Layer* known = mKnown.Find(name);
    if (!known)
        error = "the script has no layer \"" + name + "\" here";
    else if (feature && !known->feature)
        error = "\"" + name + "\" is no feature layer";
    return known && (!feature || known->feature);
}

TLLayer* TLSession::Layer(const std::string& name, std::string& error) const {
    TLRefPtr<TLLayer> layer = mMap->GetLayerByName(TLString(name));
    if (!layer) error = "the map has no layer \"" + name + "\"";
    return layer.get();
}

TLFeatureLayer* TLSession::FeatureLayer(const std::string& name, std::string& error) const {
    TLLayer* layer = Layer(name, error);
    if (!layer) return nullptr;
    auto* features = dynamic_cast<TLFeatureLayer*>(layer);
    if (!features) error = "\"" + name + "\" is no feature layer";
    return features;
}

TLTool* TLSession::Tool(const std::string& name) const {
    if (!name.empty() && name.find_first_not_of("0123456789") == std::string::npos) {
        TLCMDPool* pool = TLCMDPool::GetInstance();
        const int place = name.size() < 4 ? std::stoi(name) : 0;
        return place >= 1 && place <= pool->GetToolCount() ? pool->GetTool(place - 1) : nullptr;
    }
    const int row = TLToolTable::IndexOf(name);
    return TLToolTable::PoolTool(row >= 0 ? row : TLToolTable::IndexOfRegisteredName(name));
}

void TLSession::listen(TLFeatureLayer* layer) {
    layer->GetDatasource()->AddListener(&mTranscript);
    mTranscript.Remember(layer->GetDatasource().get());
}

void TLSession::AddWorkspace(std::unique_ptr<TMWorkspace> workspace) {
    int bottom = 0;
    for (const auto& layer : workspace->GetLayers()) {
        if (!mMap->GetSpatialReference() && layer->GetSpatialReference())
            mMap->SetSpatialReference(layer->GetSpatialReference());
        // As in the desktop shell: feature layers go on top in the workspace's order, rasters
        // beneath everything.
        const bool features = dynamic_cast<TLFeatureLayer*>(layer.get()) != nullptr;
        mMap->InsertLayer(features ? -1 : bottom++, layer.get(), true);
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get())) listen(features);
    }
    FitView();
    mWorkspaces.push_back(std::move(workspace));
}

void TLSession::FitView() {
    if (!mViewChosen && !mMap->GetFullExtent().IsEmpty()) mView->ZoomToBound(mMap->GetFullExtent());
}

void TLSession::AddLayer(TLFeatureLayer* layer) {
    if (!mMap->GetSpatialReference() && layer->GetSpatialReference())
        mMap->SetSpatialReference(layer->GetSpatialReference());
    mMap->InsertLayer(-1, layer, true);
    listen(layer);
}

const TLModalAnswerer::Record* TLSession::LastBox() const {
    const auto& records = mAnswerer.Records();
    for (std::size_t i = records.size(); i > mRecordsBefore && i > 0; --i)
        if (records[i - 1].kind == "message box") return &records[i - 1];
    return nullptr;
}

}  // namespace TMObjects
