#include "TLSession.h"

#include <typeinfo>

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
        mTranscript.Event("failure", entry + ": " + what);
        mTranscript.CountFailure();
    });
    mAnswerer.SetListener(
        [this](const TLModalAnswerer::Record& record) { mTranscript.Dialog(record); });
    mAnswerer.Start();
    // Snapping starts off, as in a fresh desktop session; a script switches it on.
    TLSnapEnvironment::Instance()->setEnabled(false);
    return true;
}

void TLSession::Stop() {
    mTranscript.Mute();
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
    TLCMDPool* pool = TLCMDPool::GetInstance();
    if (!name.empty() && name.find_first_not_of("0123456789") == std::string::npos) {
        const int place = std::stoi(name);
        return place >= 1 && place <= pool->GetToolCount() ? pool->GetTool(place - 1) : nullptr;
    }
    // The pool keeps tools by their base; the class is told by its exported type information.
    const std::string mangled = "N9TMObjects" + std::to_string(name.size()) + name + "E";
    for (int i = 0; i < pool->GetToolCount(); ++i) {
        TLTool* tool = pool->GetTool(i);
        if (tool && mangled == typeid(*tool).name()) return tool;
    }
    return nullptr;
}

void TLSession::AddWorkspace(std::unique_ptr<TMWorkspace> workspace) {
    for (const auto& layer : workspace->GetLayers()) {
        if (!mMap->GetSpatialReference() && layer->GetSpatialReference())
            mMap->SetSpatialReference(layer->GetSpatialReference());
        mMap->InsertLayer(-1, layer.get(), true);
        if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get()))
            features->GetDatasource()->AddListener(&mTranscript);
    }
    if (!mViewChosen) mView->ZoomToBound(mMap->GetFullExtent());
    mWorkspaces.push_back(std::move(workspace));
}

const TLModalAnswerer::Record* TLSession::LastDialog() const {
    const auto& records = mAnswerer.Records();
    return records.empty() ? nullptr : &records.back();
}

}  // namespace TMObjects
