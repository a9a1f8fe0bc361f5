#include "SessionFixture.h"

#include <typeinfo>

#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLCMDPool.h"
#include "tlmap/TLSnapTool.h"

namespace TMObjects {

std::unique_ptr<TLPluginLoader> SessionFixture::loader;

void SessionFixture::SetUpTestSuite() {
    loader = std::make_unique<TLPluginLoader>();
    ASSERT_TRUE(loader->Load(TLPluginLoader::DefaultPluginPath())) << loader->Error();
}

void SessionFixture::TearDownTestSuite() {
    loader.reset();
}

void SessionFixture::SetUp() {
    map = TLRefPtr<TLMap>(new TLMap);
    view = std::make_unique<TLMapView>(map);
    view->SetDeviceSize(800, 600);
    view->SetVisibleBounds(TLRect(0, 800, 0, 600));
    buddy = std::make_unique<TLHostBuddy>(view.get());
    dispatcher = std::make_unique<TLToolDispatcher>(buddy.get());
    dispatcher->SetFailureListener(
        [this](const std::string& what, const std::string&) { failures.push_back(what); });
    TLSnapEnvironment::Instance()->setEnabled(false);
    TLSnapEnvironment::Instance()->setTolerance(10);
}

void SessionFixture::TearDown() {
    dispatcher.reset();
    buddy.reset();
    view.reset();
    map.reset();
}

TLFeatureLayer* SessionFixture::addLayer(const char* name, TLLayer::LayerType type,
                                         const char* crs) {
    TLRefPtr<TLCoordinateSystem> reference;
    if (crs) reference = TLSpatialObjectFactory::LoadCoordinateSystem(crs);
    TLFeatureLayer* layer = TLFeatureLayer::CreateMemoryLayer(name, type, TLFields(), reference);
    layer->SetEditable(true);
    map->InsertLayer(-1, layer, true);
    return layer;
}

void SessionFixture::edit(TLFeatureLayer* layer) {
    map->editor()->set_edit_layer(layer);
}

TLTool* SessionFixture::poolTool(const char* className) {
    TLCMDPool* pool = TLCMDPool::GetInstance();
    for (int i = 0; i < pool->GetToolCount(); ++i) {
        TLTool* tool = pool->GetTool(i);
        const std::string mangled = typeid(*tool).name();
        const std::string wanted = std::to_string(std::string(className).size()) + className;
        if (mangled.find(wanted) != std::string::npos) return tool;
    }
    return nullptr;
}

void SessionFixture::pick(const char* className) {
    TLTool* tool = poolTool(className);
    ASSERT_NE(tool, nullptr) << className;
    dispatcher->Activate(tool);
}

std::vector<std::string> SessionFixture::messages() const {
    std::vector<std::string> out;
    for (const auto& t : buddy->Texts(TLHostEvent::Message)) out.push_back(t.toStdString());
    return out;
}

std::vector<std::string> SessionFixture::prompts() const {
    std::vector<std::string> out;
    for (const auto& t : buddy->Texts(TLHostEvent::Prompt)) out.push_back(t.toStdString());
    return out;
}

std::pair<double, double> SessionFixture::pointOf(TLFeatureLayer* layer, int id) const {
    TLRefPtr<TLFeature> feature = layer->GetFeature(id);
    if (!feature) return {NAN, NAN};
    auto* point = dynamic_cast<TLGeoPoint*>(feature->GetGeometry().get());
    if (!point) return {NAN, NAN};
    return {point->GetX(), point->GetY()};
}

}  // namespace TMObjects
