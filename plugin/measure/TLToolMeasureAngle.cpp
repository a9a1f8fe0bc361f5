#include "measure/TLToolMeasureAngle.h"

#include <QWidget>
#include <cmath>
#include <memory>

#include "measure/TMDisplayAngle.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

constexpr double kPi = 3.14159265358979323846;

void setBandLook(TLRubberBand* band) {
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
}

// The turn from the first leg to the second at `vertex`, in (-pi, pi].
double angleAt(const TLPoint& first, const TLPoint& vertex, const TLPoint& pointer) {
    const double a = std::atan2(first.x - vertex.x, first.y - vertex.y);
    const double b = std::atan2(pointer.x - vertex.x, pointer.y - vertex.y);
    double d = a - b;
    if (std::fabs(d) > kPi) d = d < 0 ? d + 2.0 * kPi : d - 2.0 * kPi;
    return d;
}

}  // namespace

TLToolMeasureAngle::TLToolMeasureAngle() = default;

TLToolMeasureAngle::TLToolMeasureAngle(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolMeasureAngle::~TLToolMeasureAngle() {
    delete rubberBand;
    delete dialog;
}

void TLToolMeasureAngle::activate() {
    mActive = true;
    points.clear();
    if (!mBuddy) return;
    mBuddy->SetCursor(2);
    snapTool.Init(mBuddy);
}

void TLToolMeasureAngle::deactivate() {
    points.clear();
    if (rubberBand) {
        rubberBand->Clear();
        rubberBand->Update();
    }
    delete rubberBand;
    rubberBand = nullptr;
    delete dialog;
    dialog = nullptr;
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    snapTool.Reset();
    TLTool::deactivate();
}

void TLToolMeasureAngle::createRubberBand() {
    delete rubberBand;
    rubberBand = nullptr;
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return;
    rubberBand = new TLRubberBand(view, TLRubberBand::LineBand);
    setBandLook(rubberBand);
}

TLPoint TLToolMeasureAngle::toImage(const TLPoint& map) const {
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    TLDisplayTransform* transform = view ? view->GetDisplayTransform() : nullptr;
    return transform ? transform->ToDevice(map) : map;
}

void TLToolMeasureAngle::startOver() {
    points.clear();
    if (!rubberBand) return;
    rubberBand->Clear();
    rubberBand->Update();
}

// Presses are taken on release: the figure grows on OnMouseUp.
bool TLToolMeasureAngle::OnMouseDown(TLMouseButton, int, int) {
    return mBuddy != nullptr;
}

bool TLToolMeasureAngle::OnMouseUp(TLMouseButton button, int x, int y) {
    TLMapView* view = mActive && mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view) return false;
    if (button == TLRightButton) {
        DisplayMeasureAngle(0, this, true);
        startOver();
        return true;
    }
    if (button != TLLeftButton) return true;

    if (points.size() == 3) {
        startOver();
        DisplayMeasureAngle(0, this, false);
    }
    if (points.empty()) createRubberBand();
    if (!rubberBand) return true;
    TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (snapTool.CanSnap() && snapTool.Snap(p, nullptr)) {
        snapTool.GetSnapXY(p.x, p.y);
        snapTool.Draw(view->GetDisplayTransform(), TLSnapEnvironment::Instance());
    }
    points.push_back(toImage(p));
    rubberBand->AddPoint(p, 0);
    rubberBand->Update();
    return true;
}

void TLToolMeasureAngle::showLiveBand(const TLPoint& pointer) {
    auto live = std::make_unique<TLRubberBand>(mBuddy->GetMapView(), TLRubberBand::LineBand);
    setBandLook(live.get());
    for (int i = 0; i < rubberBand->GetPointCount(0); ++i)
        live->AddPoint(rubberBand->GetPoint(i, 0), 0);
    live->AddPoint(pointer, 0);
    live->Update();
}

bool TLToolMeasureAngle::OnMouseMove(TLMouseButton button, int x, int y) {
    if (!mActive || !mBuddy || !mBuddy->GetMapView()) return false;
    if (button == TLMidButton || !rubberBand) return false;
    if (points.empty() || points.size() > 2) return true;

    TLPoint pointer = ToMapCoordinates(TLPoint(x, y), nullptr);
    if (snapTool.CanSnap()) {
        snapTool.Snap(pointer, nullptr);
        snapTool.GetSnappedPoint(pointer);
        snapTool.Draw(mBuddy->GetMapView()->GetDisplayTransform(), TLSnapEnvironment::Instance());
    }
    showLiveBand(pointer);
    const double angle = points.size() == 2 ? angleAt(points[0], points[1], toImage(pointer)) : 0.0;
    DisplayMeasureAngle(angle, this, true);
    return true;
}

void TLToolMeasureAngle::DisplayMeasureAngle(double value, TLTool*, bool show) {
    if (!mBuddy) return;
    if (!dialog && !show) return;
    if (!dialog) {
        dialog = new TMDisplayAngle;
        const Qt::WindowFlags flags = dialog->windowFlags();
        dialog->setParent(QWidget::find(WId(mBuddy->MainWindowId())));
        dialog->setWindowFlags(flags);
        dialog->move(200, 50);
    }
    dialog->setValue(value);
    dialog->setVisible(show);
}

}  // namespace TMObjects
