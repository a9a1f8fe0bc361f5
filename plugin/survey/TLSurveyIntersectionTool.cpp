#include "survey/TLSurveyIntersectionTool.h"

#include "survey/TLSurveyScratchLayer.h"
#include "survey/TLSurveyText.h"
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
    editor = view->GetMap()->editor();
    layer = dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
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
    if (!dialog) return;
    // This may run inside one of the dialog's own slots (Escape, "Draw P"): it goes once
    // control is back in the event loop, and hears nothing of the tool meanwhile.
    delete retired;
    dialog->setTool(nullptr);
    dialog->hide();
    dialog->deleteLater();
    retired = dialog;
    dialog = nullptr;
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
    return editor && layer && layer->IsValid() && layer->IsEditable();
}

TLPoint TLSurveyIntersectionTool::mapPoint(int x, int y) {
    return ToMapCoordinates(TLPoint(x, y), nullptr);
}

bool TLSurveyIntersectionTool::OnMouseDown(TLMouseButton button, int x, int y) {
    if (!mBuddy) return false;
    if (!canEdit()) {
        // The click is refused, but a form that stepped aside for it comes back as it was.
        if (button == TLLeftButton && dialog && dialog->isHidden() && !dialog->wasClosed() &&
            !dialog->pendingPick().isEmpty())
            dialog->show();
        return false;
    }
    if (button == TLLeftButton) {
        const TLPoint p = mapPoint(x, y);
        pickedX = TLSurveyText::coordinate(p.x);
        pickedY = TLSurveyText::coordinate(p.y);
        if (pickCode == 1) pointA = p;
        if (pickCode == 2) pointB = p;
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
    auto* band = new TLRubberBand(mBuddy->GetMapView(), TLRubberBand::LineBand);
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    return band;
}

void TLSurveyIntersectionTool::drawLine(TLRubberBand* band, const TLPoint& first,
                                        const TLPoint& second, const TLPoint& third) {
    if (!band) return;
    band->Reset(TLRubberBand::LineBand);
    band->AddPoint(first, -1);
    band->AddPoint(second, -1);
    band->AddPoint(third, -1);
    band->Update();
}

bool TLSurveyIntersectionTool::EndEntity(TLPoint& point, TLRect& rect) {
    // The refresh rectangle is taken in map coordinates, before the point is projected.
    rect.Union(TLRect(point.x, point.x, point.y, point.y));
    return TLSurveyScratchLayer::addPoint(mBuddy, point);
}

}  // namespace TMObjects
