#include "survey/TLSurveyIntersectionTool.h"

#include "survey/TLSurveyScratchLayer.h"
#include "survey/TLSurveyText.h"
#include "survey/TLSurveyToolSteps.h"
#include "survey/TMIntersectionDialog.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

TLSurveyIntersectionTool::TLSurveyIntersectionTool() = default;

TLSurveyIntersectionTool::TLSurveyIntersectionTool(TLToolBuddy* buddy) : TLTool(buddy) {}

TLSurveyIntersectionTool::~TLSurveyIntersectionTool() {
    delete dialog;
    delete retired;
}

void TLSurveyIntersectionTool::Reset() {
    pickCode = 0;
    pickedX = TLString();
    pickedY = TLString();
    pointA = TLPoint();
    pointB = TLPoint();
    pointP = TLPoint();
}

void TLSurveyIntersectionTool::activate() {
    mActive = true;
    Reset();
    TLMapView* view = mBuddy ? mBuddy->GetMapView() : nullptr;
    if (!view || !view->GetMap()) return;
    // The form comes up first and goes again at once when there is no edit layer.
    showDialog();
    layer = TLSurveyToolSteps::findEditLayer(view, editor);
    if (!layer) {
        deactivate();
        return;
    }
    onLayerFound();
}

void TLSurveyIntersectionTool::showDialog() {
    if (!dialog) {
        delete retired;
        dialog = createDialog();
    }
    dialog->attachToMainWindow(mBuddy);
    dialog->resetForm();
    dialog->setTool(this);
    dialog->move(250, 80);
    dialog->show();
}

void TLSurveyIntersectionTool::retireDialog() {
    TLSurveyToolSteps::retire(dialog, retired);
}

void TLSurveyIntersectionTool::deactivate() {
    Reset();
    retireDialog();
    editor = nullptr;
    layer = nullptr;
    // The buddy stays, so that the tool can be activated again without Init.
    if (mBuddy) mBuddy->UnregisterTool(this, false);
    TLTool::deactivate();
}

bool TLSurveyIntersectionTool::canEdit() const {
    return TLSurveyToolSteps::canEdit(editor, layer);
}

TLPoint TLSurveyIntersectionTool::mapPoint(int x, int y) {
    return ToMapCoordinates(TLPoint(x, y), nullptr);
}

bool TLSurveyIntersectionTool::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    if (!canEdit()) return TLSurveyToolSteps::refuseClick(dialog, button);
    if (button == TLLeftButton) {
        const TLPoint p = mapPoint(x, y);
        TLSurveyToolSteps::keepClick(p, pickCode, pickedX, pickedY, pointA, pointB);
        onPicked(p);
    }
    if (dialog) dialog->onMapClick(int(button), 1);
    return true;
}

bool TLSurveyIntersectionTool::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLSurveyIntersectionTool::OnMouseMove(TLMouseButton, int, int) {
    return true;
}

bool TLSurveyIntersectionTool::OnDblClick(TLMouseButton button, int, int) {
    if (dialog) dialog->onMapClick(int(button), 2);
    return true;
}

bool TLSurveyIntersectionTool::processInformation(TLString& x, TLString& y) {
    x = pickedX;
    y = pickedY;
    pickCode = 0;
    return true;
}

bool TLSurveyIntersectionTool::setInformation(TLString text) {
    pickCode = text.ToInt();
    return true;
}

bool TLSurveyIntersectionTool::setMultipleInformation(TLArray<TLString> texts) {
    if (pickCode != drawCode()) return false;
    return drawP(texts);
}

bool TLSurveyIntersectionTool::drawP(const TLArray<TLString>& texts) {
    if (texts.empty()) return false;
    TLRect rect;
    bool drawn = false;
    if (TLSurveyText::cutPoint(texts.GetAt(0), pointP)) drawn = EndEntity(pointP, rect);
    afterDraw(drawn, rect);
    return drawn;
}

void TLSurveyIntersectionTool::afterDraw(bool drawn, const TLRect& rect) {
    if (!drawn) return;
    Reset();
    mBuddy->GetMapView()->RefreshMap(false, rect);
}

bool TLSurveyIntersectionTool::takeKnownPoints(const TLArray<TLString>& texts) {
    if (texts.empty()) return false;
    TLSurveyText::cutPoint(texts.GetAt(0), pointA);
    if (texts.size() > 1) TLSurveyText::cutPoint(texts.GetAt(1), pointB);
    return true;
}

TLRubberBand* TLSurveyIntersectionTool::makeBand() {
    return TLSurveyToolSteps::makeBand(mBuddy->GetMapView());
}

void TLSurveyIntersectionTool::drawLine(TLRubberBand* band, const TLPoint& first,
                                        const TLPoint& second, const TLPoint& third) {
    TLSurveyToolSteps::drawLine(band, first, second, third);
}

bool TLSurveyIntersectionTool::EndEntity(TLPoint& point, TLRect& rect) {
    // The refresh rectangle is taken in map coordinates, before the point is projected.
    rect.Union(TLRect(point.x, point.x, point.y, point.y));
    return TLSurveyScratchLayer::addPoint(mBuddy, point);
}

}  // namespace TMObjects
