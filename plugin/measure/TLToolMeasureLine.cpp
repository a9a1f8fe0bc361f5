#include "measure/TLToolMeasureLine.h"

#include <QWidget>
#include <cmath>
#include <memory>

#include "measure/TMDisplayLength.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kSphereRadius = 6378137.0;

void setBandLook(TLRubberBand* band) {
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
}

}  // namespace

TLToolMeasureLine::TLToolMeasureLine() = default;

TLToolMeasureLine::TLToolMeasureLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureLine::~TLToolMeasureLine() {
    delete rubberBand;
    delete dialog;
}

void TLToolMeasureLine::activate() {
    mActive = true;
    projection = TLString();
    if (!mBuddy) return;
    mBuddy->SetCursor(2);

    TLMapView* view = mBuddy->GetMapView();
    TLMap* map = view ? view->GetMap() : nullptr;
    if (map && map->GetSpatialReference())
        projection = map->GetSpatialReference()->ExportToString();

    TLDisplayTransform* transform = view ? view->GetDisplayTransform() : nullptr;
    units = transform ? transform->mUnits : 0;
    if (units == 0) {
        // No unit from the view: the system says degrees or metres.
        TLCoordinateSystem* loaded = projection.isEmpty() ? nullptr : loadedSystem();
        units = loaded && loaded->IsGeographic() ? TLDecimalDegrees : TLMeters;
    }
    snapTool.Init(mBuddy);
}

void TLToolMeasureLine::deactivate() {
    stopMeasuring();
    if (mBuddy) {
        DisplayMeasureLength(0, this, false);
        mBuddy->UnregisterTool(this, false);
    }
    delete dialog;
    dialog = nullptr;
    snapTool.Reset();
    TLTool::deactivate();
}

TLCoordinateSystem* TLToolMeasureLine::loadedSystem() {
    if (!systemLoaded || loadedProjection != projection) {
        loadedProjection = projection;
        systemLoaded = true;
        system = TLSpatialObjectFactory::LoadCoordinateSystem(projection);
        if (system && system->IsGeographic()) parameter.calcParameter(projection);
    }
    return system.get();
}

TLString TLToolMeasureLine::getProjStr() {
    return projection;
}

double TLToolMeasureLine::rad(double degrees) {
    return degrees * kPi / 180.0;
}

double TLToolMeasureLine::computeFlatDis(double x1, double y1, double x2, double y2) {
    return std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2));
}

double TLToolMeasureLine::computeEllipseDis(double a, double b, double c, double d) {
    const double ra = rad(a), rb = rad(b), rc = rad(c), rd = rad(d);
    const double s1 = std::sin((ra - rc) / 2.0);
    const double s2 = std::sin((rb - rd) / 2.0);
    const double h = s1 * s1 + std::cos(rc) * std::cos(ra) * s2 * s2;
    return std::fabs(2.0 * std::asin(std::sqrt(h)) * kSphereRadius);
}

double TLToolMeasureLine::measureLine(double x1, double y1, double x2, double y2) {
    if (projection.isEmpty()) {
        units = 0;
        ellipsoidal = 0;
        return computeFlatDis(x1, y1, x2, y2);
    }
    TLCoordinateSystem* loaded = loadedSystem();
    if (!loaded || loaded->IsProjected()) {
        units = TLMeters;
        ellipsoidal = 0;
        return computeFlatDis(x1, y1, x2, y2);
    }
    if (loaded->IsGeographic()) {
        ellipsoidal = 1;
        units = TLMeters;
        return TLEllipseCalcFunc::CalcEllipseDis(parameter, x1, y1, x2, y2);
    }
    return 0.0;
}

double TLToolMeasureLine::segmentLength(const TLPoint& from, const TLPoint& to) {
    if (ellipsoidal == 1 && loadedSystem())
        return TLEllipseCalcFunc::CalcEllipseDis(parameter, from.x, from.y, to.x, to.y);
    return computeFlatDis(from.x, from.y, to.x, to.y);
}

void TLToolMeasureLine::createRubberBand() {
    delete rubberBand;
    rubberBand = nullptr;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return;
    rubberBand = new TLRubberBand(view, TLRubberBand::LineBand);
    setBandLook(rubberBand);
}

void TLToolMeasureLine::stopMeasuring() {
    points.clear();
    if (rubberBand) {
        rubberBand->Clear();
        rubberBand->Update();
    }
    delete rubberBand;
    rubberBand = nullptr;
}

TLPoint TLToolMeasureLine::snapPoint(TLPoint device) {
    return ToMapCoordinates(device, nullptr);
}

bool TLToolMeasureLine::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mActive || !mBuddy || !mBuddy->GetMapView()) return false;
    TLPoint p;
    if (!snapTool.GetSnapXY(p.x, p.y)) p = snapPoint(TLPoint(x, y));

    if (button != TLLeftButton) {
        stopMeasuring();
        return true;
    }
    if (points.empty()) createRubberBand();
    points.push_back(p);
    if (rubberBand) {
        rubberBand->AddPoint(p, 0);
        rubberBand->Update();
    }
    return true;
}

bool TLToolMeasureLine::OnDblClick(TLMouseButton, int, int) {
    if (!mActive || !mBuddy) return false;
    stopMeasuring();
    return true;
}

// A band of its own for the segment to the pointer, so that the clicked line stays as it is.
void TLToolMeasureLine::addLiveBand(const TLPoint& pointer) {
    auto live = std::make_unique<TLRubberBand>(mBuddy->GetMapView(), TLRubberBand::LineBand);
    setBandLook(live.get());
    for (int i = 0; i < rubberBand->GetPointCount(0); ++i)
        live->AddPoint(rubberBand->GetPoint(i, 0), 0);
    live->AddPoint(pointer, 0);
    live->Update();
}

bool TLToolMeasureLine::OnMouseMove(TLMouseButton, int x, int y) {
    TLMapView* view = mActive && mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return false;
    TLPoint pointer = ToMapCoordinates(TLPoint(x, y), nullptr);
    const bool snapping = snapTool.CanSnap();
    if (snapping) {
        snapTool.Snap(pointer, nullptr);
        snapTool.GetSnappedPoint(pointer);
        snapTool.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    }
    if (!rubberBand || points.empty()) return true;

    addLiveBand(pointer);
    const TLPoint& last = points.back();
    DisplayMeasureLength(measureLine(last.x, last.y, pointer.x, pointer.y), this, true);
    return true;
}

void TLToolMeasureLine::DisplayMeasureLength(double value, TLTool* tool, bool show) {
    if (!mBuddy) return;
    // Nothing to hide on a dialog that was never shown.
    if (!dialog && !show) return;
    if (!dialog) {
        dialog = new TMDisplayLength;
        const Qt::WindowFlags flags = dialog->windowFlags();
        dialog->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
        dialog->setWindowFlags(flags);
        dialog->move(200, 50);
    }
    if (auto* line = dynamic_cast<TLToolMeasureLine*>(tool)) dialog->setTool(line);
    dialog->setLastSegment(value);
    dialog->setVisible(show);
}

}  // namespace TMObjects
