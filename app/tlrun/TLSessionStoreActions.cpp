#include "TLSessionStoreActions.h"

#include "TLTranscript.h"
#include "tlmap/TLMapView.h"
#include "tlsde/TLSharedFeatureStore.h"

namespace TMObjects {

namespace {

std::string idList(const std::vector<int>& ids) {
    std::string text;
    for (int id : ids) text += (text.empty() ? "" : " ") + std::to_string(id);
    return text;
}

}  // namespace

bool TLSessionStoreActions::Knows(const std::string& verb) {
    return verb == "reload" || verb == "refresh";
}

bool TLSessionStoreActions::Run(const TLSessionCommand& c, std::string& error) {
    if (c.verb == "reload") return reload(c, error);
    if (c.verb == "refresh") return refresh(c, error);
    error = "unknown verb \"" + c.verb + "\"";
    return false;
}

bool TLSessionStoreActions::reload(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(1, 1, "reload NAME", error) || !mSession.HasLayer(c.words[0], true, error))
        return false;
    if (mSession.Dry()) return true;
    TLFeatureTable* table = mSession.FeatureLayer(c.words[0], error)->GetDatasource().get();
    TLSharedFeatureStore* store = TLSharedFeatureStore::Of(*table);
    const std::vector<int> ids = store ? store->Conflicts() : std::vector<int>();
    if (ids.empty()) {
        mSession.Transcript().Event("reloaded", c.words[0] + ": nothing to reload");
        return true;
    }
    TLString why;
    if (!store->Reload(*table, ids, why)) {
        mSession.Transcript().Event("reload-failed", c.words[0] + ": " + why.toStdString());
        return true;
    }
    mSession.Transcript().Event("reloaded", c.words[0] + ": " + idList(ids));
    mSession.View()->RefreshMap(false, TLRect());
    return true;
}

bool TLSessionStoreActions::refresh(const TLSessionCommand& c, std::string& error) {
    if (!c.Expect(0, 1, "refresh [NAME]", error)) return false;
    if (c.words.size() == 1 && !mSession.HasLayer(c.words[0], true, error)) return false;
    if (mSession.Dry()) return true;
    if (c.words.size() == 1) {
        refreshLayer(mSession.FeatureLayer(c.words[0], error));
    } else {
        for (const auto& layer : mSession.Map()->GetLayers(true))
            if (auto* features = dynamic_cast<TLFeatureLayer*>(layer.get())) refreshLayer(features);
    }
    mSession.View()->RefreshMap(false, TLRect());
    return true;
}

void TLSessionStoreActions::refreshLayer(TLFeatureLayer* layer) {
    const std::string name = layer->GetLayerName().toStdString();
    TLFeatureTable* table = layer->GetDatasource().get();
    TLSharedFeatureStore* store = TLSharedFeatureStore::Of(*table);
    TLString why;
    if (store && !store->Refresh(*table, why))
        mSession.Transcript().Event("refresh-failed", name + ": " + why.toStdString());
    else
        mSession.Transcript().Event(
            "refreshed", name + ": " + std::to_string(layer->GetDatasource()->GetFeatureCount()) +
                             " features at hand");
}

}  // namespace TMObjects
