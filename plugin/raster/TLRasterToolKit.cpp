#include "raster/TLRasterToolKit.h"

#include <QComboBox>
#include <QWidget>

#include "TLToolText.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRasterDirLayer.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

TLMapView* TLRasterToolKit::view(TLToolBuddy* buddy) {
    return buddy ? buddy->GetMapView() : nullptr;
}

TLMap* TLRasterToolKit::map(TLToolBuddy* buddy) {
    TLMapView* v = view(buddy);
    return v ? v->GetMap() : nullptr;
}

void TLRasterToolKit::attachToMainWindow(QWidget* dialog, TLToolBuddy* buddy) {
    const Qt::WindowFlags flags = dialog->windowFlags();
    dialog->setParent(QWidget::find(WId(buddy->MainWindowId())));
    dialog->setWindowFlags(flags);
    dialog->move(250, 80);
}

bool TLRasterToolKit::hasRaster(TLToolBuddy* buddy) {
    TLMap* m = map(buddy);
    if (!m) return false;
    const std::vector<TLRefPtr<TLLayer>> layers = m->GetLayers(true);
    const int count = m->GetLayerCount();
    for (int i = 0; i < count && i < int(layers.size()); ++i)
        if (layers[i] && layers[i]->IsRasterLayer()) return true;
    return false;
}

TLRasterLayer* TLRasterToolKit::rasterAt(TLLayer* layer, double x, double y) {
    if (auto* catalogue = dynamic_cast<TLRasterDirLayer*>(layer))
        return catalogue->GetRasterLayer(x, y);
    return dynamic_cast<TLRasterLayer*>(layer);
}

TLPoint TLRasterToolKit::toLayer(TLMap* map, TLLayer* layer, const TLPoint& point) {
    TLPoint projected = point;
    TLRefPtr<TLCoordinateSystem> from = map ? map->GetSpatialReference() : nullptr;
    TLRefPtr<TLCoordinateSystem> to = layer ? layer->GetSpatialReference() : nullptr;
    if (from && to && !from->IsSame(to.get())) {
        TLGeometryProject project;
        if (project.SetPrj(from.get(), to.get(), nullptr)) project.ProjPoint(projected);
    }
    return projected;
}

bool TLRasterToolKit::addRasterLayers(QComboBox* combo,
                                      const std::vector<TLRefPtr<TLLayer>>& layers) {
    bool met = false;
    for (const TLRefPtr<TLLayer>& layer : layers) {
        if (!layer) continue;
        met = true;
        if (!layer->IsRasterLayer() || !layer->IsValid()) continue;
        combo->addItem(toQString(layer->GetLayerName()), QVariant(layer->GetLayerId()));
    }
    return met;
}

int TLRasterToolKit::currentLayerId(const QComboBox* combo) {
    return combo->currentIndex() < 0 ? 0 : combo->currentData(Qt::UserRole).toInt();
}

int TLRasterToolKit::indexOfLayerId(const QComboBox* combo, int id) {
    return combo->findData(QVariant(id), Qt::UserRole);
}

}  // namespace TMObjects
