#include "edit/TLToolEdgeMatching.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QWidget>
#include <cmath>
#include <map>

#include "TLToolText.h"
#include "data/CHelper.h"
#include "data/CcurrencyFunc.h"
#include "data/CdataManager.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLLayerEditBuffer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLSelection.h"
#include "tlmap/TLSnap.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsde/TLFeatureCursor.h"
#include "tlsde/TLFeatureTable.h"

namespace TMObjects {

namespace {

// The circle is drawn as 41 points once round, the last repeating the first.
constexpr int kCircleSteps = 40;
constexpr double kCircleStep = 0.15707963267948966;  // pi / 20

bool isLineOrPolygon(TLLayer* layer) {
    return layer->GetLayerType() == TLLayer::LineLayer ||
           layer->GetLayerType() == TLLayer::PolygonLayer;
}

// The valid feature layers of the map of one of the two kinds that have no selection: the
// boundary's own layer never takes part.
std::vector<TLFeatureLayer*> unselectedLayers(TLMapView* view, bool linesOnly) {
    std::vector<TLFeatureLayer*> layers;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!features || !isLineOrPolygon(features) || !features->IsValid() ||
            features->HasSelectedFeatures())
            continue;
        if (linesOnly && features->GetLayerType() != TLLayer::LineLayer) continue;
        layers.push_back(features);
    }
    return layers;
}

int rawCount(TLGeometry* geometry) {
    double* xy = nullptr;
    int count = 0;
    if (!geometry || !geometry->GetRawPoints(&xy, count)) return 0;
    return count;
}

}  // namespace

TLToolEdgeMatching::TLToolEdgeMatching() = default;

TLToolEdgeMatching::TLToolEdgeMatching(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEdgeMatching::~TLToolEdgeMatching() {
    delete mManager;
}

void TLToolEdgeMatching::activate() {
    mActive = true;
    if (!mBuddy) return;
    mMeetLines = false;
    mDragging = false;
    mMeetKind = 0;
    mSnapTool.Init(mBuddy);
}

void TLToolEdgeMatching::deactivate() {
    releasePackage();
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTool::deactivate();
}

void TLToolEdgeMatching::releasePackage() {
    delete mManager;
    mManager = nullptr;
    mPackage = nullptr;
}

bool TLToolEdgeMatching::readBoundary(TLMapView* view) {
    int selected = 0;
    for (const TLRefPtr<TLLayer>& layer : view->GetMap()->GetLayers(true)) {
        auto* features = dynamic_cast<TLFeatureLayer*>(layer.get());
        if (!features || !isLineOrPolygon(features)) continue;
        selected += features->SelectedFeatureCount();
        if (!features->HasSelectedFeatures()) continue;
        mBoundaryLayer = TLRefPtr<TLFeatureLayer>(features);
        const int id = features->GetSelectedIds().front();
        if (id >= 0) mBoundary = features->GetFeature(id);
        if (mBoundary && rawCount(mBoundary->GetGeometry().get()) < 2) {
            mBoundary = nullptr;
            mBoundaryLayer = nullptr;
        }
    }
    if (selected == 1 && mBoundary) return true;
    mBoundary = nullptr;
    mBoundaryLayer = nullptr;
    return false;
}

bool TLToolEdgeMatching::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return true;
    mMeetLines = false;
    mBoundary = nullptr;
    mBoundaryLayer = nullptr;
    releasePackage();
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap()) return true;

    if (!readBoundary(view)) {
        QMessageBox::warning(QWidget::find(WId(mBuddy->MainWindowId())), QObject::tr("Warning"),
                             QObject::tr("Please select only one boundary!"),
                             QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
        return true;
    }
    mMode = mBoundaryLayer->GetLayerType() == TLLayer::LineLayer ? 0 : 1;

    const TLPoint point = ToMapCoordinates(TLPoint(x, y), nullptr);
    TLDisplayTransform* transform = view->GetDisplayTransform();
    if (!transform) return true;
    const double tolerance =
        TLSelectionEnvironment::Instance()->GetTolerance() * transform->GetResolution();
    int part = -1, vertex = -1;
    const bool hit =
        mBoundary->GetGeometry()->HitTest(point, tolerance, GeoHitBoundary, part, vertex);
    if (button == TLLeftButton && hit) {
        mDragging = true;
        mFirstPoint = point;
    }
    return true;
}

bool TLToolEdgeMatching::OnMouseMove(TLMouseButton, int x, int y) {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return true;
    const TLPoint cursor = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (mSnapTool.CanSnap() && !mDragging) {
        TLPoint snapped = cursor;
        mSnapTool.Snap(snapped, nullptr);
        mSnapTool.GetSnappedPoint(snapped);
        mSnapTool.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    }
    if (mDragging) drawCircle(view, cursor);
    return true;
}

// The circle lives for this one move; what it leaves is its bound and its shape.
void TLToolEdgeMatching::drawCircle(TLMapView* view, const TLPoint& cursor) {
    TLRubberBand band(view, TLRubberBand::PolygonBand);
    band.SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    const double r = std::hypot(cursor.x - mFirstPoint.x, cursor.y - mFirstPoint.y);
    band.Reset(TLRubberBand::PolygonBand);
    for (int i = 0; i <= kCircleSteps; ++i) {
        const double t = i * kCircleStep;
        band.AddPoint(TLPoint(mFirstPoint.x + std::cos(t) * r, mFirstPoint.y + std::sin(t) * r), 0);
    }
    band.ClosePoints(true, 0);
    band.Update();
    mBoxGeometry = band.AsGeometry();
    if (mBoxGeometry) mBox = mBoxGeometry->GetBound();
}

bool TLToolEdgeMatching::OnMouseUp(TLMouseButton button, int, int) {
    if (!mBuddy || button != TLLeftButton || !mDragging) return true;
    mDragging = false;
    ExecMeetEdge();
    return true;
}

void TLToolEdgeMatching::ExecMeetEdge() {
    if (mMode == 0) {
        allureBorderPoint();
        return;
    }
    if (!mBoundary || !mBoundaryLayer) return;
    mManager = new CdataManager;
    const int number = mManager->package_Add();
    mPackage = mManager->GetPackages().getAt(number);
    mManager->setCurrPackageNo(number);
    CRvLayer* layer = CreateRvLayerByTLLayer(mBoundaryLayer.get(), mPackage);

    int found = -1;
    CvectorEntityData* chunk = layer->FirstChunk();
    for (int i = 0; chunk && i < mPackage->GetEntities().getSize(); ++i) {
        CvectorEntityData* entity = mPackage->GetEntities().getAt(i);
        if (entity != chunk) continue;
        if (entity->entity_GetAttribValueByName(TLString("OID")).ToInt() == mBoundary->GetId()) {
            entity->entity_SetMark(1);
            found = i;
            break;
        }
        chunk = layer->NextChunk();
    }
    mManager->setCurrEntityNo(found);
    if (found >= 0) {
        mBoundaryLayerNo = 1;
        if (mManager->layer_FieldGetLayerPt(number, 1) ==
            mManager->entity_GetAttribLayerPT(number, found)) {
            double fx = 0.0, fy = 0.0, distance = 0.0;
            mManager->setCurrPointNo(mManager->entity_GetMinDistance(
                number, found, mFirstPoint.x, mFirstPoint.y, fx, fy, distance));
            initAllurePoint();
        }
    }
    selFeaIntoCRvLayer();
    if (mMeetLines) {
        mMode = 0;
        allureBorderPoint();
    }
    mMode = 1;
    allureBorderPoint();
    modifyFeaFromGRvLayer();
    if (TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr) view->UpdateView(true);
}

CRvLayer* TLToolEdgeMatching::CreateRvLayerByTLLayer(TLFeatureLayer* layer,
                                                     CvectorPackageData* package) {
    const TLString name = layer->GetLayerName();
    CRvLayer* copy = package->CreateEbpLayer(name, nullptr);
    copy->SetLayerType(CHelper::layertype2gttype(layer->GetLayerType()));
    copy->SetLayerName(name);
    TLFeatureStore* store = layer->GetDatasource()->GetStore();
    copy->SetDataSource(store ? store->GetPath() : TLString());
    CRvFields fields;
    CHelper::TmFieldsPtrToFields(&layer->GetDatasource()->GetFields(), fields);
    CHelper::StandFieldsLength(fields);
    copy->GetFields().removeAll();
    CHelper::GetEditFieldDef(fields, copy->GetFields());
    CHelper::copyDataToPackage(layer, package, copy, false, nullptr);
    return copy;
}

// The point of the boundary next to the press, kept for the view; what counts for the move is
// the current point number it leaves in the manager.
int TLToolEdgeMatching::initAllurePoint() {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLDisplayTransform* transform = view ? view->GetDisplayTransform() : nullptr;
    if (!transform) return 0;
    const int package = mManager->getCurrPackageNo();
    const int entity = mManager->getCurrEntityNo();
    const double r = std::fabs(mBox.YMaximum() - mBox.YMinimum()) * 0.5;
    int count = 0;
    mManager->point_GetSize(package, entity, count);
    auto distanceOf = [&](int i) {
        double x = 0.0, y = 0.0;
        mManager->point_GetXY(package, entity, i, x, y);
        return std::hypot(x - mFirstPoint.x, y - mFirstPoint.y);
    };
    int within = -1;
    for (int i = 0; i < count && within < 0; ++i)
        if (distanceOf(i) <= r) within = i;
    if (within >= 0) {
        mManager->point_GetXY(package, entity, within, mAllurePoint[0], mAllurePoint[1]);
        mManager->setCurrPointNo(within);
    } else {
        int nearest = 0;
        for (int i = 1; i < count; ++i)
            if (distanceOf(i) < distanceOf(nearest)) nearest = i;
        mManager->setCurrPointNo(nearest);
        double ax = 0.0, ay = 0.0, bx = 0.0, by = 0.0;
        mManager->point_GetXY(package, entity, nearest, ax, ay);
        if (!mManager->point_GetXY(package, entity, nearest + 1, bx, by)) {
            bx = ax;
            by = ay;
        }
        CcurrencyFunc::point_LineSpace(mFirstPoint.x, mFirstPoint.y, ax, ay, bx, by,
                                       &mAllurePoint[0], &mAllurePoint[1], 1);
    }
    const TLRect& visible = transform->GetVisibleBounds();
    const TLRect& frame = transform->GetDeviceFrame();
    mAllureDeviceX =
        int((mAllurePoint[0] - visible.XMinimum()) / transform->GetResolution() + frame.XMinimum());
    mAllureDeviceY =
        int((visible.YMaximum() - mAllurePoint[1]) / transform->GetResolution() + frame.YMinimum());
    return 1;
}

void TLToolEdgeMatching::selFeaIntoCRvLayer() {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    TLQueryFilter filter;
    filter.SetFilterGeometry(TLRefPtr<TLGeometry>(new TLGeoEnvelope(mBox)));
    filter.SetSpatialRel(TLSpatialRelEnvelopeIntersects);
    mCollected.clear();
    int lines = 0;
    for (TLFeatureLayer* layer : unselectedLayers(view, false)) {
        TLRefPtr<TLFeatureCursor> cursor = layer->Search(filter);
        if (!cursor) return;
        while (TLRefPtr<TLFeature> feature = cursor->NextFeature()) {
            mCollected.push_back({int(mCollected.size()), feature, layer->GetLayerId()});
            if (layer->GetLayerType() == TLLayer::LineLayer) ++lines;
        }
    }
    if (lines > 1) mMeetLines = true;
    mCollectedLayerNo = mPackage->GetLayers().add();
    CRvLayer* collected = mPackage->GetLayers().getAt(mCollectedLayerNo);
    collected->SetLayerType(mMode == 0 ? CvectorEntityBase::EntityLine
                                       : CvectorEntityBase::EntityPolygon);
    for (const Collected& entry : mCollected) {
        CvectorEntityData* entity = mPackage->entity_GetAt(mPackage->entity_Add(1));
        CHelper::TmGeometryToChunkData(entry.feature->GetGeometry().get(), entity, false);
        entity->entity_SetAttribValueByName(TLString("RecordId"), TLString::Number(entry.recordId));
        entity->entity_SetMark(1);
        collected->AddChunk(entity);
    }
}

void TLToolEdgeMatching::allureBorderPoint() {
    if (mMode == 1)
        polygonPass();
    else
        linePass();
}

void TLToolEdgeMatching::polygonPass() {
    if (!mManager) return;
    double x1 = mBox.XMinimum(), y1 = mBox.YMinimum();
    double x2 = mBox.XMaximum(), y2 = mBox.YMaximum();
    if (mMeetKind == 1) {
        if (x1 > x2) std::swap(x1, x2);
        if (y1 > y2) std::swap(y1, y2);
    }
    mManager->handMovementMeetEdge(mManager->getCurrPackageNo(), mBoundaryLayerNo,
                                   mCollectedLayerNo, mManager->getCurrEntityNo(), mMeetKind, x1,
                                   y1, x2, y2);
}

void TLToolEdgeMatching::referenceLine(double& ax, double& ay, double& bx, double& by) {
    TLGeometry* boundary = mBoundary->GetGeometry().get();
    if (!mMeetLines) {
        // Only the boundary's first segment counts, however long the boundary is.
        double* xy = nullptr;
        int count = 0;
        boundary->GetRawPoints(&xy, count);
        ax = xy[0];
        ay = xy[1];
        bx = xy[2];
        by = xy[3];
        return;
    }
    double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
    TLSnap snap;
    if (!snap.getAllureEdge(mBox.Center(), boundary, std::fabs(mBox.Width()) * 0.5,
                            std::fabs(mBox.Height()) * 0.5, x1, y1, x2, y2))
        x1 = y1 = x2 = y2;
    ax = x1;
    ay = y1;
    bx = x2;
    by = y2;
}

void TLToolEdgeMatching::linePass() {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap() || !mBoundary) return;
    const double d = std::hypot(mBox.Width(), mBox.Height());
    if (d == 0.0) return;
    const TLRect box(mBox.XMinimum() - d, mBox.XMaximum() + d, mBox.YMinimum() - d,
                     mBox.YMaximum() + d);
    bool ok = false;
    const QString text = QInputDialog::getText(QWidget::find(WId(mBuddy->MainWindowId())),
                                               QObject::tr("Joint error limit"),
                                               QObject::tr("Please input joint error limit:"),
                                               QLineEdit::Normal, QStringLiteral("1.000000"), &ok);
    if (!ok) return;
    const double limit = text.toDouble();
    double ax = 0.0, ay = 0.0, bx = 0.0, by = 0.0;
    referenceLine(ax, ay, bx, by);

    TLQueryFilter filter;
    filter.SetFilterGeometry(mBoxGeometry);
    filter.SetSpatialRel(TLSpatialRelIntersects);
    std::vector<std::pair<TLFeatureLayer*, TLRefPtr<TLFeature>>> features;
    for (TLFeatureLayer* layer : unselectedLayers(view, true)) {
        TLRefPtr<TLFeatureCursor> cursor = layer->Search(filter);
        if (!cursor) return;
        while (TLRefPtr<TLFeature> feature = cursor->NextFeature())
            features.emplace_back(layer, feature);
    }
    for (auto& [layer, feature] : features) {
        TLRefPtr<TLGeometry> geometry = feature->GetGeometry();
        if (!geometry || !geometry->GetBound().Intersects(box)) continue;
        matchLineFeature(layer, feature.get(), box, limit, ax, ay, bx, by);
        view->RefreshMap(false, TLRect());
    }
}

// One step for the feature, also when no vertex moved.
void TLToolEdgeMatching::matchLineFeature(TLFeatureLayer* layer, TLFeature* feature,
                                          const TLRect& box, double limit, double ax, double ay,
                                          double bx, double by) {
    layer->StartOperation(nullptr);
    TLLayerEditBuffer* buffer = layer->layer_edit_buffer();
    // A copy: the layer's own geometry must stay as it was until the change is recorded.
    TLRefPtr<TLGeometry> geometry = feature->GetGeometry()->Clone();
    double* raw = nullptr;
    int count = 0;
    if (geometry->IsEmpty() || !geometry->GetRawPoints(&raw, count) || !raw) return;
    std::vector<double> xy(raw, raw + 2 * std::size_t(count));
    for (int i = 0; i < count; ++i) {
        double& x = xy[2 * std::size_t(i)];
        double& y = xy[2 * std::size_t(i) + 1];
        // The box test comes before the distance.
        if (!box.PtInRect(TLPoint(x, y))) continue;
        if (CcurrencyFunc::point_LineSpace(x, y, ax, ay, bx, by, nullptr, nullptr, 1) > limit)
            continue;
        x = mFirstPoint.x;
        y = mFirstPoint.y;
    }
    geometry->UpdateRawPoints(xy.data());
    buffer->changeGeometry(feature->GetId(), geometry, false);
    layer->CommitOperation();
}

void TLToolEdgeMatching::modifyFeaFromGRvLayer() {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!mPackage) return;
    for (int number = 2; number <= mPackage->GetLayers().getSize(); ++number) {
        CRvLayer* layer = mPackage->GetLayers().getAt(number);
        if (!layer) continue;
        const int type = layer->GetLayerType();
        const int kind = type == CvectorEntityBase::EntityLine      ? TLGeometry::GeoPolyline
                         : type == CvectorEntityBase::EntityPolygon ? TLGeometry::GeoPolygon
                                                                    : 0;
        if (kind == 0) continue;
        for (CvectorEntityData* chunk = layer->FirstChunk(); chunk; chunk = layer->NextChunk()) {
            const int record = chunk->entity_GetAttribValueByName(TLString("RecordId")).ToInt();
            for (const Collected& entry : mCollected) {
                if (entry.recordId != record) continue;
                if (!mBuddy || !view || !view->GetMap()) return;
                auto* target = dynamic_cast<TLFeatureLayer*>(
                    view->GetMap()->GetLayerByID(entry.layerId).get());
                if (!target) continue;
                target->StartOperation(nullptr);
                target->layer_edit_buffer()->changeGeometry(
                    entry.feature->GetId(),
                    CHelper::ChunkDataToTmGeometry(chunk, kind, false, false, false), false);
                target->CommitOperation();
            }
        }
    }
}

}  // namespace TMObjects
