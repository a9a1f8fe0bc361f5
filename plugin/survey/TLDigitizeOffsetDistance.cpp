#include "survey/TLDigitizeOffsetDistance.h"

#include "survey/TLSurveyScratchLayer.h"
#include "survey/TLSurveyText.h"
#include "survey/TLSurveyToolSteps.h"
#include "survey/TMOffsetDistance.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

constexpr int kDrawP = 3;

}  // namespace

TLDigitizeOffsetDistance::TLDigitizeOffsetDistance() = default;

TLDigitizeOffsetDistance::TLDigitizeOffsetDistance(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeOffsetDistance::~TLDigitizeOffsetDistance() {
    delete dialog;
    delete retired;
}

void TLDigitizeOffsetDistance::Reset() {
    pickCode = 0;
    pickedX = TLString();
    pickedY = TLString();
    pointA = TLPoint();
    pointB = TLPoint();
    pointP = TLPoint();
}

void TLDigitizeOffsetDistance::activate() {
    mActive = true;
    Reset();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    // The form comes up first and goes again at once when there is no edit layer.
    showOffsetDistanceDialog(this, true);
    layer = TLSurveyToolSteps::findEditLayer(view, editor);
    if (!layer) deactivate();
}

void TLDigitizeOffsetDistance::deactivate() {
    TLSurveyToolSteps::retire(dialog, retired);
    editor = nullptr;
    layer = nullptr;
    // The buddy stays, so that the tool can be activated again without Init.
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTool::deactivate();
}

bool TLDigitizeOffsetDistance::canEdit() const {
    return TLSurveyToolSteps::canEdit(editor, layer);
}

bool TLDigitizeOffsetDistance::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    if (!canEdit()) return TLSurveyToolSteps::refuseClick(dialog, button);
    if (button == TLLeftButton) {
        const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
        TLSurveyToolSteps::keepClick(p, pickCode, pickedX, pickedY, pointA, pointB);
    }
    if (dialog) dialog->onMapClick(int(button), 1);
    return true;
}

bool TLDigitizeOffsetDistance::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLDigitizeOffsetDistance::OnMouseMove(TLMouseButton, int, int) {
    return true;
}

bool TLDigitizeOffsetDistance::OnDblClick(TLMouseButton button, int, int) {
    if (dialog) dialog->onMapClick(int(button), 2);
    return true;
}

bool TLDigitizeOffsetDistance::processInformation(TLString& x, TLString& y) {
    // The code stays: a further left click picks the same point again.
    x = pickedX;
    y = pickedY;
    return true;
}

bool TLDigitizeOffsetDistance::setInformation(TLString text) {
    pickCode = text.ToInt();
    return true;
}

bool TLDigitizeOffsetDistance::setMultipleInformation(TLArray<TLString> texts) {
    if (pickCode != kDrawP || texts.empty()) return false;
    const bool drawn = TLSurveyToolSteps::writeP(mBuddy, texts, pointP);
    if (drawn) mBuddy->GetMapView()->UpdateView(true);
    Reset();
    return drawn;
}

bool TLDigitizeOffsetDistance::EndEntity(TLPoint& p) {
    return TLSurveyScratchLayer::addPoint(mBuddy, p);
}

void TLDigitizeOffsetDistance::showOffsetDistanceDialog(TLTool* tool, bool show) {
    TLSurveyToolSteps::showDialog<TLDigitizeOffsetDistance>(dialog, retired, mBuddy, tool, show);
}

}  // namespace TMObjects
