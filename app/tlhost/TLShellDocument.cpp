#include "TLShellDocument.h"

#include <QObject>

#include "TLShellText.h"
#include "tlmap/TLFeatureLayer.h"
#include "tmgis/TMWorkspace.h"

namespace TMObjects {

TLShellDocument::TLShellDocument() : mMap(new TLMap) {}

TLShellDocument::~TLShellDocument() = default;

bool TLShellDocument::Open(const QString& path, QString& error,
                           const std::function<bool(long long, long long)>& progress) {
    mNotes.clear();
    TLString reason;
    std::unique_ptr<TMWorkspace> workspace =
        TMWorkspace::Open(ToTLString(path), true, reason, progress);
    if (!workspace) {
        error = ToQString(reason);
        return false;
    }
    int bottom = 0;
    for (const TLRefPtr<TLLayer>& layer : workspace->GetLayers()) {
        adoptSystem(layer.get());
        // Feature layers go on top of the map in the workspace's order (its last on top), and
        // rasters beneath everything, where they hide nothing.
        if (dynamic_cast<TLFeatureLayer*>(layer.get()))
            mMap->InsertLayer(-1, layer.get(), true);
        else
            mMap->InsertLayer(bottom++, layer.get(), true);
    }
    for (const TLString& note : workspace->GetNotes()) mNotes << ToQString(note);
    mWorkspaces.push_back(std::move(workspace));
    return true;
}

void TLShellDocument::adoptSystem(TLLayer* layer) {
    if (!mMap->GetSpatialReference() && layer->GetSpatialReference())
        mMap->SetSpatialReference(layer->GetSpatialReference());
}

QStringList TLShellDocument::Paths() const {
    QStringList paths;
    for (const auto& workspace : mWorkspaces) paths << ToQString(workspace->GetPath());
    return paths;
}

void TLShellDocument::ChooseEditLayer() {
    TLEditor* editor = mMap->editor();
    if (editor->edit_layer()) return;
    TLLayer* chosen = nullptr;
    for (const TLRefPtr<TLLayer>& layer : mMap->GetLayers(true)) {
        if (!dynamic_cast<TLFeatureLayer*>(layer.get()) || !layer->IsEditable()) continue;
        const auto type = layer->GetLayerType();
        if (type == TLLayer::PointLayer || type == TLLayer::MultiPointLayer) {
            chosen = layer.get();
            break;
        }
        if (!chosen) chosen = layer.get();
    }
    if (!chosen) return;
    editor->set_edit_layer(chosen);
    mMap->SetCurrentLayer(chosen);
}

std::vector<TLFeatureLayer*> TLShellDocument::UnsavedLayers() const {
    std::vector<TLFeatureLayer*> layers;
    for (const TLRefPtr<TLLayer>& layer : mMap->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!features) continue;
        TLRefPtr<TLFeatureTable> table = features->GetDatasource();
        // The table counts only what differs from its store, so an edit taken back by undo
        // leaves nothing here; asking for the changes themselves would copy every one of them.
        if (table && table->GetStore() && table->IsDirty()) layers.push_back(features);
    }
    return layers;
}

QStringList TLShellDocument::UnsavedLayerNames() const {
    QStringList names;
    for (TLFeatureLayer* layer : UnsavedLayers()) names << ToQString(layer->GetLayerName());
    return names;
}

bool TLShellDocument::SaveEdits(QString& error) {
    for (TLFeatureLayer* layer : UnsavedLayers()) {
        if (layer->SaveEdits()) continue;
        error = QObject::tr("The edits to %1 could not be saved: %2")
                    .arg(ToQString(layer->GetLayerName()), ToQString(layer->LastSaveError()));
        return false;
    }
    return true;
}

}  // namespace TMObjects
