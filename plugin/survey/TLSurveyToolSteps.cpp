#include "survey/TLSurveyToolSteps.h"

#include "survey/TLSurveyScratchLayer.h"
#include "survey/TLSurveyText.h"
#include "survey/TMSurveyDialog.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

TLFeatureLayer* TLSurveyToolSteps::findEditLayer(TLMapView* view, TLEditor*& editor) {
    editor = view->GetMap()->editor();
    return dynamic_cast<TLFeatureLayer*>(editor->edit_layer());
}

bool TLSurveyToolSteps::canEdit(const TLEditor* editor, const TLFeatureLayer* layer) {
    return editor && layer && layer->IsValid() && layer->IsEditable();
}

bool TLSurveyToolSteps::refuseClick(TMSurveyDialog* dialog, TLMouseButton button) {
    if (button == TLLeftButton && dialog && dialog->isHidden() && !dialog->wasClosed() &&
        !dialog->pendingPick().isEmpty())
        dialog->show();
    return false;
}

void TLSurveyToolSteps::keepClick(const TLPoint& p, int pickCode, TLString& x, TLString& y,
                                  TLPoint& a, TLPoint& b) {
    x = TLSurveyText::coordinate(p.x);
    y = TLSurveyText::coordinate(p.y);
    if (pickCode == 1) a = p;
    if (pickCode == 2) b = p;
}

TLRubberBand* TLSurveyToolSteps::makeBand(TLMapView* view) {
    auto* band = new TLRubberBand(view, TLRubberBand::LineBand);
    band->SetPenStyle(TLPen::SolidLine, 1.0, TLColor(255, 0, 0));
    band->SetBrushStyle(TLBrush::SolidPattern, TLColor(255, 0, 0, 50));
    return band;
}

void TLSurveyToolSteps::drawLine(TLRubberBand* band, const TLPoint& first, const TLPoint& second,
                                 const TLPoint& third) {
    if (!band) return;
    band->Reset(TLRubberBand::LineBand);
    band->AddPoint(first, -1);
    band->AddPoint(second, -1);
    band->AddPoint(third, -1);
    band->Update();
}

bool TLSurveyToolSteps::writeP(TLToolBuddy* buddy, const TLArray<TLString>& texts, TLPoint& p) {
    if (texts.empty() || !TLSurveyText::cutPoint(texts.GetAt(0), p)) return false;
    return TLSurveyScratchLayer::addPoint(buddy, p);
}

}  // namespace TMObjects
