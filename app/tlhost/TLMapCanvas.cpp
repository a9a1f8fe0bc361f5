#include "TLMapCanvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "TLGeometryPainter.h"
#include "TLLayerPainter.h"
#include "TLLayerStyle.h"
#include "TLOverlayPainter.h"
#include "TLRasterPainter.h"
#include "TLShellText.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSelection.h"

namespace TMObjects {

namespace {

// Zoom of one wheel notch, and the share of the view an arrow key moves it by.
constexpr double kWheelStep = 1.25;
constexpr double kArrowShare = 0.25;
// How far beyond a changed rectangle the picture is drawn again: the layer symbols, plus a
// pixel of smoothing.
constexpr int kRedrawMargin = TLLayerStyle::kMargin + 2;
constexpr int kFlashMilliseconds = 150;

TLMouseButton toolButton(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return TLLeftButton;
        case Qt::RightButton:
            return TLRightButton;
        case Qt::MiddleButton:
            return TLMidButton;
        default:
            return TLNoButton;
    }
}

// A move reports the buttons held; tools want one, the left before the right.
TLMouseButton heldButton(Qt::MouseButtons buttons) {
    if (buttons & Qt::LeftButton) return TLLeftButton;
    if (buttons & Qt::RightButton) return TLRightButton;
    return TLNoButton;
}

QColor colourOf(const TLColor& c) {
    return QColor(c.getR(), c.getG(), c.getB(), c.getA());
}

}  // namespace

TLMapCanvas::TLMapCanvas(QWidget* parent)
    : QWidget(parent), mRasters(std::make_unique<TLRasterPainter>()) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 150);
    setCursor(Qt::ArrowCursor);
    mFlashTimer.setInterval(kFlashMilliseconds);
    connect(&mFlashTimer, &QTimer::timeout, this, &TLMapCanvas::flash);
}

TLMapCanvas::~TLMapCanvas() {
    if (mView && mView->Listener() == this) mView->SetListener(nullptr);
}

void TLMapCanvas::SetView(TLMapView* view) {
    if (mView && mView->Listener() == this) mView->SetListener(nullptr);
    mView = view;
    if (!mView) return;
    mView->SetListener(this);
    mView->SetDeviceSize(width(), height());
    RefreshAll();
}

bool TLMapCanvas::ready() const {
    return mView && mView->GetMap() && !mView->GetVisibleRect().IsEmpty();
}

// ---- coordinates ----

QPointF TLMapCanvas::ToDevice(const TLPoint& map) const {
    const TLPoint p = mView->GetDisplayTransform()->ToDevice(map);
    return QPointF(p.x, p.y);
}

TLPoint TLMapCanvas::ToMap(const QPointF& device) const {
    return mView->GetDisplayTransform()->ToMap(TLPoint(device.x(), device.y()));
}

QRect TLMapCanvas::deviceRect(const TLRect& map) const {
    const QPointF a = ToDevice(TLPoint(map.XMinimum(), map.YMaximum()));
    const QPointF b = ToDevice(TLPoint(map.XMaximum(), map.YMinimum()));
    // The rectangle of one point has no size but still covers its symbol, so it is grown by the
    // margin rather than tested for area. Beyond the screen there is nothing to draw; clamping
    // also keeps a huge rectangle from overflowing integer pixels.
    const double m = kRedrawMargin;
    const double left = std::max(std::min(a.x(), b.x()) - m, -m);
    const double right = std::min(std::max(a.x(), b.x()) + m, width() + m);
    const double top = std::max(std::min(a.y(), b.y()) - m, -m);
    const double bottom = std::min(std::max(a.y(), b.y()) + m, height() + m);
    if (!(left < right && top < bottom)) return QRect();
    return QRect(QPoint(int(std::floor(left)), int(std::floor(top))),
                 QPoint(int(std::ceil(right)), int(std::ceil(bottom))));
}

TLRect TLMapCanvas::mapArea(const QRect& device) const {
    const QRect grown =
        device.adjusted(-kRedrawMargin, -kRedrawMargin, kRedrawMargin, kRedrawMargin);
    const TLPoint a = ToMap(grown.topLeft());
    const TLPoint b = ToMap(QPointF(grown.right() + 1, grown.bottom() + 1));
    return TLRect(a.x, b.x, a.y, b.y);
}

// ---- navigation ----

void TLMapCanvas::ZoomToFullExtent() {
    if (!mView || !mView->GetMap()) return;
    TLRect extent = mView->GetMap()->GetFullExtent();
    if (extent.IsEmpty()) return;
    // A margin keeps features on the edge clear of the frame.
    extent.Scale(1.05, nullptr);
    mView->ZoomToBound(extent);
}

void TLMapCanvas::ZoomToLayer(TLLayer* layer) {
    if (!mView || !layer) return;
    TLRect extent = layer->GetExtent();
    if (extent.IsEmpty()) return;
    mView->GetDisplay()->ToMapRect(layer->GetSpatialReference().get(), extent);
    extent.Scale(1.05, nullptr);
    mView->ZoomToBound(extent);
}

void TLMapCanvas::ZoomBy(double factor, const QPointF& anchor) {
    if (!ready() || factor <= 0) return;
    const TLDisplayTransform* t = mView->GetDisplayTransform();
    const double resolution = t->mResolution / factor;
    const TLPoint fixed = ToMap(anchor);
    const double left = fixed.x - anchor.x() * resolution;
    const double top = fixed.y + anchor.y() * resolution;
    mView->SetVisibleBounds(
        TLRect(left, left + width() * resolution, top - height() * resolution, top));
}

void TLMapCanvas::PanByPixels(const QPoint& delta) {
    if (!ready() || delta.isNull()) return;
    const double resolution = mView->GetDisplayTransform()->mResolution;
    const TLPoint centre = mView->GetVisibleRect().Center();
    const TLPoint moved(centre.x - delta.x() * resolution, centre.y + delta.y() * resolution);
    // A rectangle of one point moves the view without touching its scale.
    mView->PanToBound(TLRect(moved.x, moved.x, moved.y, moved.y));
}

// ---- what the view asks for ----

void TLMapCanvas::RefreshAll() {
    mMapAllDirty = true;
    mMapDirty = QRegion();
    mSelectionDirty = true;
    update();
}

void TLMapCanvas::invalidateMap(const TLRect& rect) {
    if (rect.IsEmpty() || !ready()) {
        mMapAllDirty = true;
    } else {
        const QRect device = deviceRect(rect);
        if (!device.isEmpty()) mMapDirty += device;
    }
    // A commit may also have cleared a selection without a word; the overlay is cheap to redo.
    mSelectionDirty = true;
    update();
}

void TLMapCanvas::OnRefreshMap(const TLRect& rect) {
    invalidateMap(rect);
}

void TLMapCanvas::OnRefresh(TLLayer* layer, int cacheType, const TLRect& rect) {
    if (cacheType == TLMapCache::SelectionCache) {
        mSelectionDirty = true;
        update();
        Q_EMIT selectionRefreshed();
        return;
    }
    invalidateMap(rect);
}

void TLMapCanvas::OnUpdateView() {
    mBandPictures.clear();
    RefreshAll();
    Q_EMIT selectionRefreshed();
}

void TLMapCanvas::OnRefreshOverlay() {
    keepBandPictures();
    update();
}

void TLMapCanvas::keepBandPictures() {
    mBandPictures.clear();
    if (!mView) return;
    for (const TLRubberBand* band : mView->RubberBands()) {
        auto copy = std::make_unique<TLRubberBand>(*band);
        // The copy is no band of the view's and must not reach it when it goes.
        copy->DetachView();
        mBandPictures.emplace_back(band, std::move(copy));
    }
}

void TLMapCanvas::OnVisibleBoundsChanged() {
    RefreshAll();
    Q_EMIT viewChanged();
}

void TLMapCanvas::OnClipPolygonChanged() {
    update();
}

void TLMapCanvas::OnUpdateMap() {
    update();
}

void TLMapCanvas::OnTwinkle(TLGeometry* geometry, int times) {
    if (!geometry || times <= 0) return;
    // The flash runs on the event loop: the tool that asked for it goes on at once.
    mFlashGeometry = geometry->Clone();
    mFlashesLeft = 2 * times;
    mFlashTimer.start();
    update();
}

void TLMapCanvas::flash() {
    if (--mFlashesLeft <= 0) {
        mFlashTimer.stop();
        mFlashGeometry.reset();
    }
    update();
}

// ---- drawing ----

bool TLMapCanvas::layerShown(TLLayer* layer) const {
    if (!layer->IsVisible() || !layer->IsValid()) return false;
    if (layer->GetVisibleInAllScale()) return true;
    const double scale = mView->GetDisplayTransform()->GetScaleRatio();
    const double minimum = layer->GetVisibleScaleMin(), maximum = layer->GetVisibleScaleMax();
    return (minimum <= 0 || scale <= minimum) && (maximum <= 0 || scale >= maximum);
}

void TLMapCanvas::RenderPending() {
    if (!mView) return;
    if (mMap.size() != size()) {
        mMap = QImage(size(), QImage::Format_ARGB32_Premultiplied);
        mSelection = QImage(size(), QImage::Format_ARGB32_Premultiplied);
        mMapAllDirty = mSelectionDirty = true;
    }
    if (mMapAllDirty || !mMapDirty.isEmpty()) renderMap();
    if (mSelectionDirty) renderSelection();
}

void TLMapCanvas::renderMap() {
    QPainter painter(&mMap);
    mLastRender = RenderRecord();
    mLastRender.full = mMapAllDirty;
    const QRegion region = mMapAllDirty ? QRegion(mMap.rect()) : mMapDirty & mMap.rect();
    for (const QRect& device : region) renderMapArea(painter, device);
    mLastRender.region = region.boundingRect();
    mMapAllDirty = false;
    mMapDirty = QRegion();
    ++mRenderCount;
}

void TLMapCanvas::renderMapArea(QPainter& painter, const QRect& device) {
    painter.setClipRect(device);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(device, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (!ready()) return;
    painter.setRenderHint(QPainter::Antialiasing, true);
    const TLRect area = mapArea(device);
    TLGeometryPainter geometry(*mView->GetDisplayTransform());
    TLLayerPainter features(mView->GetDisplay(), geometry);
    const std::vector<TLRefPtr<TLLayer>> layers = mView->GetMap()->GetLayers(true);
    // The last layer of the map lies on top: the list is drawn from its start.
    for (const TLRefPtr<TLLayer>& each : layers) {
        TLLayer* layer = each.get();
        if (!layerShown(layer)) continue;
        if (auto* featureLayer = dynamic_cast<TLFeatureLayer*>(layer)) {
            mLastRender.features += features.DrawFeatures(painter, featureLayer, area);
        } else if (auto* raster = dynamic_cast<TLRasterLayer*>(layer)) {
            TLRect extent = raster->GetExtent();
            mView->GetDisplay()->ToMapRect(raster->GetSpatialReference().get(), extent);
            TLRefPtr<TLCoordinateSystem> mapSystem = mView->GetMap()->GetSpatialReference();
            TLRefPtr<TLCoordinateSystem> rasterSystem = raster->GetSpatialReference();
            const bool same = !mapSystem || !rasterSystem || mapSystem->IsSame(rasterSystem.get());
            const QString target = same ? QString() : ToQString(mapSystem->ExportToWkt());
            if (!mRasters->Draw(painter, raster, area, geometry, target, extent))
                reportRaster(raster);
        }
    }
}

void TLMapCanvas::reportRaster(TLRasterLayer* raster) {
    // Once per layer: the canvas is drawn again on every pan and zoom.
    if (!mRastersReported.insert(raster->GetLayerId()).second) return;
    Q_EMIT notice(tr("%1 is shown by its outline only: %2")
                      .arg(ToQString(raster->GetLayerName()), mRasters->LastError()));
}

void TLMapCanvas::renderSelection() {
    mSelection.fill(Qt::transparent);
    mSelectionDirty = false;
    if (!ready()) return;
    QPainter painter(&mSelection);
    painter.setRenderHint(QPainter::Antialiasing, true);
    TLGeometryPainter geometry(*mView->GetDisplayTransform());
    TLLayerPainter features(mView->GetDisplay(), geometry);
    const QColor outline = colourOf(TLSelectionEnvironment::Instance()->GetOutLineColor());
    const TLRect area = mapArea(mSelection.rect());
    for (const TLRefPtr<TLLayer>& layer : mView->GetMap()->GetLayers(true)) {
        auto* featureLayer = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (featureLayer && layerShown(featureLayer))
            features.DrawSelection(painter, featureLayer, area, outline);
    }
}

void TLMapCanvas::paintEvent(QPaintEvent*) {
    mShown = true;
    RenderPending();
    QPainter painter(this);
    const bool masked = ready() && mView->clipPolygon();
    painter.fillRect(rect(), masked ? MaskedBackground() : Background());
    if (mPanning) {
        // While the map is dragged its picture only moves; it is drawn anew on release.
        painter.drawImage(mPanOffset, mMap);
        return;
    }
    if (masked) {
        const TLGeometryPainter geometry(*mView->GetDisplayTransform());
        const QPainterPath clip = geometry.RingsPath(mView->clipPolygon());
        painter.fillPath(clip, Background());
        painter.setClipPath(clip);
    }
    painter.drawImage(0, 0, mMap);
    painter.drawImage(0, 0, mSelection);
    painter.setClipping(false);
    drawOverlay(painter);
}

void TLMapCanvas::drawOverlay(QPainter& painter) {
    if (!ready()) return;
    const TLGeometryPainter geometry(*mView->GetDisplayTransform());
    const TLOverlayPainter overlay(geometry);
    overlay.DrawClipOutline(painter, mView->clipPolygon());
    if (mFlashGeometry && mFlashesLeft % 2 == 0) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(QPen(QColor(255, 200, 0), 3.0));
        painter.setBrush(QColor(255, 200, 0, 90));
        geometry.Draw(painter, mFlashGeometry.get(), TLLayerStyle::kPointDiameter + 6);
    }
    drawLeftBandPictures(painter, overlay);
    for (TLRubberBand* band : mView->RubberBands()) overlay.DrawBand(painter, *band);
    if (mView->HasSnapMarker()) overlay.DrawSnapMarker(painter, mView->SnapMarker());
}

void TLMapCanvas::drawLeftBandPictures(QPainter& painter, const TLOverlayPainter& overlay) const {
    const std::vector<TLRubberBand*>& live = mView->RubberBands();
    for (const auto& picture : mBandPictures)
        if (std::find(live.begin(), live.end(), picture.first) == live.end())
            overlay.DrawBand(painter, *picture.second);
}

// ---- input ----

void TLMapCanvas::resizeEvent(QResizeEvent*) {
    if (!mView) return;
    const TLDisplayTransform* t = mView->GetDisplayTransform();
    if (t->mVisibleBounds.IsEmpty() || !mShown) {
        // Until the canvas has been on screen, its size is the layout's guess: what was asked
        // to be shown (the data opened at start) is fitted into the real size again.
        const TLRect asked = t->mVisibleBounds;
        mView->SetDeviceSize(width(), height());
        if (!asked.IsEmpty()) mView->SetVisibleBounds(asked);
        return;
    }
    // The scale and the top-left corner stay; a larger window shows more of the map.
    const double resolution = t->mResolution;
    const double left = t->mVisibleBounds.XMinimum(), top = t->mVisibleBounds.YMaximum();
    mView->SetDeviceSize(width(), height());
    mView->SetVisibleBounds(
        TLRect(left, left + width() * resolution, top - height() * resolution, top));
}

void TLMapCanvas::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::MiddleButton) {
        mPanning = true;
        mPanOrigin = event->pos();
        mPanOffset = QPoint();
        return;
    }
    if (mDispatcher)
        mDispatcher->MouseDown(toolButton(event->button()), event->pos().x(), event->pos().y());
    update();
}

void TLMapCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        if (!mPanning) return;
        mPanning = false;
        const QPoint offset = event->pos() - mPanOrigin;
        if (offset.isNull())
            update();
        else
            PanByPixels(offset);
        return;
    }
    if (mDispatcher)
        mDispatcher->MouseUp(toolButton(event->button()), event->pos().x(), event->pos().y());
    update();
}

void TLMapCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (ready()) {
        const TLPoint at = ToMap(event->pos());
        Q_EMIT pointerMoved(at.x, at.y);
    }
    if (mPanning) {
        mPanOffset = event->pos() - mPanOrigin;
        update();
        return;
    }
    if (mDispatcher)
        mDispatcher->MouseMove(heldButton(event->buttons()), event->pos().x(), event->pos().y());
}

void TLMapCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) return;
    if (mDispatcher)
        mDispatcher->DoubleClick(toolButton(event->button()), event->pos().x(), event->pos().y());
    update();
}

void TLMapCanvas::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0) return;
    ZoomBy(std::pow(kWheelStep, notches), event->position());
    event->accept();
}

void TLMapCanvas::keyPressEvent(QKeyEvent* event) {
    // Escape never comes here: the window takes it wherever the focus is (TLEscapeRouter).
    if (mDispatcher) mDispatcher->KeyDown(event->key());
    const int dx = int(width() * kArrowShare), dy = int(height() * kArrowShare);
    switch (event->key()) {
        case Qt::Key_Left:
            return PanByPixels(QPoint(dx, 0));
        case Qt::Key_Right:
            return PanByPixels(QPoint(-dx, 0));
        case Qt::Key_Up:
            return PanByPixels(QPoint(0, dy));
        case Qt::Key_Down:
            return PanByPixels(QPoint(0, -dy));
        case Qt::Key_Plus:
            return ZoomBy(kWheelStep, rect().center());
        case Qt::Key_Minus:
            return ZoomBy(1 / kWheelStep, rect().center());
        default:
            break;
    }
    // Typing over the map is typing on the command line, as in a drawing program.
    const QString text = event->text();
    if (!text.isEmpty() && text.at(0).isPrint() && !(event->modifiers() & Qt::ControlModifier)) {
        Q_EMIT textTyped(text);
        return;
    }
    QWidget::keyPressEvent(event);
}

}  // namespace TMObjects
