#pragma once

#include <QImage>
#include <QPoint>
#include <QRegion>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "tlgeo/TLGeometry.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

class TLLayer;
class TLOverlayPainter;
class TLRasterLayer;
class TLRasterPainter;
class TLToolDispatcher;

// The map view on screen. The map's layers are drawn into a cached picture, the selection into a
// second one over it; rubber bands, the snap marker and the clip outline are drawn fresh on each
// repaint. A band's picture outlives the band until the next overlay refresh or view update. A
// RefreshMap or Refresh with a rectangle draws that rectangle of the picture again and nothing
// else, so that committing one feature on a large layer costs a few features' drawing. Pointer and
// key events go to the active tool through the dispatcher, in the canvas's own pixels, which are
// the device pixels of the view's display transform. The middle button, the wheel and the arrow
// keys move the map and are not seen by tools.
class TLMapCanvas : public QWidget, public TLMapViewListener {
    Q_OBJECT

public:
    explicit TLMapCanvas(QWidget* parent = nullptr);
    ~TLMapCanvas() override;

    // The view whose map is shown; the canvas becomes its listener and sets its device frame.
    void SetView(TLMapView* view);
    TLMapView* View() const { return mView; }
    void SetDispatcher(TLToolDispatcher* dispatcher) { mDispatcher = dispatcher; }

    void ZoomToFullExtent();
    void ZoomToLayer(TLLayer* layer);
    // A factor above 1 zooms in; the map point under `anchor` stays where it is.
    void ZoomBy(double factor, const QPointF& anchor);
    // Moves the map's picture by `delta` pixels.
    void PanByPixels(const QPoint& delta);
    // Draws every layer and the selection again, at the next repaint.
    void RefreshAll();
    // Does the drawing that is due now rather than at the next repaint.
    void RenderPending();

    QPointF ToDevice(const TLPoint& map) const;
    TLPoint ToMap(const QPointF& device) const;

    // What the last drawing of the map's picture covered, for checks that a small change stays
    // small.
    struct RenderRecord {
        QRect region;
        int features = 0;
        bool full = false;
    };
    const RenderRecord& LastRender() const { return mLastRender; }
    int RenderCount() const { return mRenderCount; }

    static QColor Background() { return QColor(255, 255, 255); }
    static QColor MaskedBackground() { return QColor(225, 225, 225); }

Q_SIGNALS:
    // Map coordinates under the pointer.
    void pointerMoved(double x, double y);
    // The visible area or the scale changed.
    void viewChanged();
    // Printable keys typed while the canvas has the focus, for the command window.
    void textTyped(const QString& text);
    // The selection overlay is to be drawn again: a selection changed.
    void selectionRefreshed();
    // Something the user should know about what is drawn (a raster that could not be).
    void notice(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    // TLMapViewListener
    void OnRefreshMap(const TLRect& rect) override;
    void OnRefresh(TLLayer* layer, int cacheType, const TLRect& rect) override;
    void OnUpdateView() override;
    void OnRefreshOverlay() override;
    void OnVisibleBoundsChanged() override;
    void OnTwinkle(TLGeometry* geometry, int times) override;
    void OnClipPolygonChanged() override;
    void OnUpdateMap() override;

private:
    void invalidateMap(const TLRect& rect);
    void renderMap();
    void renderMapArea(QPainter& painter, const QRect& device);
    void renderSelection();
    // The map rectangle drawn for a device rectangle: a little larger, so that the symbols of
    // features just outside reach into it.
    TLRect mapArea(const QRect& device) const;
    QRect deviceRect(const TLRect& map) const;
    bool layerShown(TLLayer* layer) const;
    void reportRaster(TLRasterLayer* raster);
    void drawOverlay(QPainter& painter);
    // Copies of the bands as the last overlay refresh showed them, so that a band a tool drops
    // within the event that drew it stays on screen until the next picture or the next redraw
    // of the view, as drawing on a screen does.
    void keepBandPictures();
    void drawLeftBandPictures(QPainter& painter, const TLOverlayPainter& overlay) const;
    void flash();
    bool ready() const;

    TLMapView* mView = nullptr;
    TLToolDispatcher* mDispatcher = nullptr;
    std::unique_ptr<TLRasterPainter> mRasters;
    std::set<int> mRastersReported;
    QImage mMap;
    QImage mSelection;
    bool mMapAllDirty = true;
    QRegion mMapDirty;
    bool mSelectionDirty = true;
    RenderRecord mLastRender;
    int mRenderCount = 0;

    bool mShown = false;
    bool mPanning = false;
    QPoint mPanOrigin;
    QPoint mPanOffset;

    // Each picture with the band it was copied from, told apart from live bands by address.
    std::vector<std::pair<const TLRubberBand*, std::unique_ptr<TLRubberBand>>> mBandPictures;

    QTimer mFlashTimer;
    TLRefPtr<TLGeometry> mFlashGeometry;
    int mFlashesLeft = 0;
};

}  // namespace TMObjects
