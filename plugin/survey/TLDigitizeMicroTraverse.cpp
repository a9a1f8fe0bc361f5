#include "survey/TLDigitizeMicroTraverse.h"

#include "survey/TLSurveyScratchLayer.h"
#include "survey/TLSurveyText.h"
#include "survey/TLSurveyToolSteps.h"
#include "survey/TMMicroTraverse.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

namespace {

constexpr int kPickAngle = 3;
constexpr int kDrawP = 4;

}  // namespace

TLDigitizeMicroTraverse::TLDigitizeMicroTraverse() = default;

TLDigitizeMicroTraverse::TLDigitizeMicroTraverse(TLToolBuddy* buddy) : TLTool(buddy) {}

TLDigitizeMicroTraverse::~TLDigitizeMicroTraverse() {
    deleteBand();
    delete dialog;
    delete retired;
}

void TLDigitizeMicroTraverse::Reset() {
    pickCode = 0;
    pickedX = TLString();
    pickedY = TLString();
    pointA = TLPoint();
    pointB = TLPoint();
    pointP = TLPoint();
}

void TLDigitizeMicroTraverse::activate() {
    mActive = true;
    Reset();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    // The form comes up first and goes again at once when there is no edit layer.
    showMicroTraverseDialog(this, true);
    layer = TLSurveyToolSteps::findEditLayer(view, editor);
    if (!layer) {
        deactivate();
        return;
    }
    makeBand();
}

void TLDigitizeMicroTraverse::makeBand() {
    deleteBand();
    rubberBand = TLSurveyToolSteps::makeBand(mBuddy->GetMapView());
}

void TLDigitizeMicroTraverse::deleteBand() {
    if (!rubberBand) return;
    clearBand();
    delete rubberBand;
    rubberBand = nullptr;
}

void TLDigitizeMicroTraverse::clearBand() {
    if (!rubberBand) return;
    rubberBand->Reset(TLRubberBand::LineBand);
    rubberBand->Update();
}

void TLDigitizeMicroTraverse::deactivate() {
    deleteBand();
    TLSurveyToolSteps::retire(dialog, retired);
    editor = nullptr;
    layer = nullptr;
    // The buddy stays, so that the tool can be activated again without Init.
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTool::deactivate();
}

bool TLDigitizeMicroTraverse::canEdit() const {
    return TLSurveyToolSteps::canEdit(editor, layer);
}

bool TLDigitizeMicroTraverse::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    if (!canEdit()) return TLSurveyToolSteps::refuseClick(dialog, button);
    if (button == TLLeftButton) {
        const TLPoint p = ToMapCoordinates(TLPoint(x, y), nullptr);
        TLSurveyToolSteps::keepClick(p, pickCode, pickedX, pickedY, pointA, pointB);
        // The angle is taken: the legs to the cursor have served.
        if (pickCode == kPickAngle) clearBand();
    }
    if (dialog) dialog->onMapClick(int(button), 1);
    return true;
}

bool TLDigitizeMicroTraverse::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLDigitizeMicroTraverse::OnMouseMove(TLMouseButton, int x, int y) {
    if (!mBuddy || !canEdit() || !rubberBand) return false;
    const TLPoint cursor = ToMapCoordinates(TLPoint(x, y), nullptr);
    // The angle is read at B, from the leg back to A round to the leg to the cursor.
    if (pickCode == kPickAngle) {
        TLSurveyToolSteps::drawLine(rubberBand, pointA, pointB, cursor);
    } else {
        clearBand();
    }
    return true;
}

bool TLDigitizeMicroTraverse::OnDblClick(TLMouseButton button, int, int) {
    if (dialog) dialog->onMapClick(int(button), 2);
    return true;
}

bool TLDigitizeMicroTraverse::processInformation(TLString& x, TLString& y) {
    x = pickedX;
    y = pickedY;
    // The pick is answered; the dialog keeps its own code, so a further left click picks the
    // same value again.
    pickCode = 0;
    return true;
}

bool TLDigitizeMicroTraverse::setInformation(TLString text) {
    pickCode = text.ToInt();
    return true;
}

bool TLDigitizeMicroTraverse::setMultipleInformation(TLArray<TLString> texts) {
    if (pickCode == kPickAngle) {
        if (texts.size() < 2) return false;
        const bool a = TLSurveyText::cutPoint(texts.GetAt(0), pointA);
        const bool b = TLSurveyText::cutPoint(texts.GetAt(1), pointB);
        return a && b;
    }
    if (pickCode != kDrawP || texts.empty()) return false;
    const bool drawn = TLSurveyToolSteps::writeP(mBuddy, texts, pointP);
    if (drawn) {
        if (rubberBand) rubberBand->Reset(TLRubberBand::LineBand);
        mBuddy->GetMapView()->UpdateView(true);
    }
    Reset();
    return drawn;
}

bool TLDigitizeMicroTraverse::EndEntity(TLPoint& p) {
    return TLSurveyScratchLayer::addPoint(mBuddy, p);
}

void TLDigitizeMicroTraverse::showMicroTraverseDialog(TLTool* tool, bool show) {
    TLSurveyToolSteps::showDialog<TLDigitizeMicroTraverse>(dialog, retired, mBuddy, tool, show);
}

}  // namespace TMObjects
