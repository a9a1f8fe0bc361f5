#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "tlmap/TLMap.h"

namespace TMObjects {

class TLFeatureLayer;
class TMWorkspace;

// The data the shell works on: one map, the data sources opened into it, and whether any of
// their layers holds edits that are not saved yet.
class TLShellDocument {
public:
    TLShellDocument();
    ~TLShellDocument();
    TLShellDocument(const TLShellDocument&) = delete;
    TLShellDocument& operator=(const TLShellDocument&) = delete;

    TLMap* Map() const { return mMap.get(); }
    TLRefPtr<TLMap> MapRef() const { return mMap; }

    // Opens a data source (GeoPackage, Shapefile, GeoJSON, a raster; anything GDAL reads) for
    // editing and puts its layers on the map: feature layers on top, rasters at the bottom. The
    // first coordinate system met becomes the map's. False, with the reason, when nothing could
    // be opened.
    bool Open(const QString& path, QString& error,
              const std::function<bool(long long, long long)>& progress = {});
    // What the last Open read with loss or left out, one line each.
    const QStringList& Notes() const { return mNotes; }
    QStringList Paths() const;

    // Makes a layer the edit layer (and the current one) when none is edited yet: the first
    // editable point layer, else the first editable feature layer. The point command is the
    // tool most often picked first, and it needs a point layer.
    void ChooseEditLayer();

    // Layers with edits that a save would write to their data source. Scratch layers in memory
    // have nowhere to go and are not counted.
    std::vector<TLFeatureLayer*> UnsavedLayers() const;
    bool HasUnsavedEdits() const { return !UnsavedLayers().empty(); }
    QStringList UnsavedLayerNames() const;
    // Saves every layer with unsaved edits. It stops at the first layer that fails, naming it
    // in `error`; the layers saved before it stay saved.
    bool SaveEdits(QString& error);

private:
    void adoptSystem(TLLayer* layer);

    TLRefPtr<TLMap> mMap;
    std::vector<std::unique_ptr<TMWorkspace>> mWorkspaces;
    QStringList mNotes;
};

}  // namespace TMObjects
