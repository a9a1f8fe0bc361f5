#pragma once

#include <vector>

#include "tlbase/TLPoint.h"
#include "tlmap/TLLayer.h"

class QComboBox;
class QWidget;

namespace TMObjects {

class TLMap;
class TLMapView;
class TLRasterLayer;
class TLToolBuddy;

// What the raster tools and their dialogs do alike: find the map and its rasters, place a
// dialog under the main window, fill a combo with raster layers, take a point into a layer's
// coordinates.
class TLRasterToolKit {
public:
    static TLMapView* view(TLToolBuddy* buddy);
    static TLMap* map(TLToolBuddy* buddy);
    // The dialog under the main window with the window flags it had, at (250, 80).
    static void attachToMainWindow(QWidget* dialog, TLToolBuddy* buddy);
    // Whether a layer of the map, as far as its layer count goes, is a raster layer.
    static bool hasRaster(TLToolBuddy* buddy);
    // The raster a layer stands for at a point of its coordinates: the layer itself, the raster
    // of a catalogue there, or null.
    static TLRasterLayer* rasterAt(TLLayer* layer, double x, double y);
    // The map point in the layer's coordinates, when both have a system and they differ.
    static TLPoint toLayer(TLMap* map, TLLayer* layer, const TLPoint& point);
    // Adds the valid raster layers of the list to the combo, in list order: text their name,
    // Qt::UserRole data their id. Whether a layer object was met at all.
    static bool addRasterLayers(QComboBox* combo, const std::vector<TLRefPtr<TLLayer>>& layers);
    // The id in the current item's Qt::UserRole data; 0 without one.
    static int currentLayerId(const QComboBox* combo);
    // The index of the item holding the id; -1 for none.
    static int indexOfLayerId(const QComboBox* combo, int id);
};

}  // namespace TMObjects
