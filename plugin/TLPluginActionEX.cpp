#include "TLPluginActionEX.h"

#include "annotation/TLToolAddAnnotation.h"
#include "annotation/TLToolAdvancedEditAnnotation.h"
#include "annotation/TLToolAdvancedMoveAnnotation.h"
#include "annotation/TLToolEditAnnotation.h"
#include "digitize/TLCmdDigitizeArc.h"
#include "digitize/TLCmdDigitizeCircle.h"
#include "digitize/TLCmdDigitizeCompoundGraphics.h"
#include "digitize/TLCmdDigitizeEllipse.h"
#include "digitize/TLCmdDigitizeFreehandRectangle.h"
#include "digitize/TLCmdDigitizeLeftDoubleLine.h"
#include "digitize/TLCmdDigitizeLine.h"
#include "digitize/TLCmdDigitizePoint.h"
#include "digitize/TLCmdDigitizePolygon.h"
#include "digitize/TLCmdDigitizeRectangle.h"
#include "digitize/TLCmdDigitizeRegularPolygon.h"
#include "digitize/TLCmdDigitizeRightDoubleLine.h"
#include "digitize/TLCmdDigitizeRing.h"
#include "digitize/TLCmdDigitizeSquare.h"
#include "digitize/TLCmdDigitizeTripleParallelLine.h"
#include "digitize/TLDigitizeStreamLine.h"
#include "edit/TLToolBisectingLine.h"
#include "edit/TLToolCollectCut.h"
#include "edit/TLToolCopyBlock.h"
#include "edit/TLToolDoubleLine.h"
#include "edit/TLToolEdgeMatching.h"
#include "edit/TLToolEditAttributes.h"
#include "edit/TLToolEditLine.h"
#include "edit/TLToolEditPoint.h"
#include "edit/TLToolExtension.h"
#include "edit/TLToolInterrupt.h"
#include "edit/TLToolPartConnect.h"
#include "edit/TLToolPartCopy.h"
#include "edit/TLToolPartOffset.h"
#include "edit/TLToolPolygonCutPolygon.h"
#include "edit/TLToolWholeOffset.h"
#include "export/TLToolExportRenderSLDStyle.h"
#include "export/TLToolExportRenderStyle.h"
#include "identify/TLToolIdentifyFeature.h"
#include "identify/TLToolIdentifyRoute.h"
#include "mask/TLToolShieldAreasClear.h"
#include "mask/TLToolShieldPolygon.h"
#include "mask/TLToolShieldRectangle.h"
#include "mask/TLToolShieldSelection.h"
#include "measure/TLToolMeasureAngle.h"
#include "measure/TLToolMeasureArea.h"
#include "measure/TLToolMeasureGirth.h"
#include "measure/TLToolMeasureLine.h"
#include "plot/TLCmdDigitizeArrow.h"
#include "plot/TLCmdDigitizeFlag.h"
#include "raster/TLAspectCalculation.h"
#include "raster/TLImageLocalModify.h"
#include "raster/TLMeasurementForSurfaceDistance.h"
#include "raster/TLSlopeCalculation.h"
#include "raster/TLSurfaceAreaMeasurement.h"
#include "raster/TLToolImageSampleCollect.h"
#include "raster/TLToolPixelInspector.h"
#include "raster/TLToolViewPixelVal.h"
#include "raster/TmToolImgSemiAutoRecog.h"
#include "survey/TLDigitizeBackwardIntersection.h"
#include "survey/TLDigitizeDirectionIntersection.h"
#include "survey/TLDigitizeForwardIntersection.h"
#include "survey/TLDigitizeMicroTraverse.h"
#include "survey/TLDigitizeOffsetDistance.h"
#include "survey/TLDigitizeParallelLine.h"
#include "survey/TLDigitizeSideIntersection.h"
#include "survey/TLDigitizeVerticalDistance.h"
#include "tlmap/TLCMDPool.h"

namespace TMObjects {

TLPluginActionEX::TLPluginActionEX() : TLPlugin(1, "tool", "actionex", "0.1", "") {}

TLPluginActionEX::~TLPluginActionEX() = default;

// The tools enter the pool in this fixed order, which is the order of the host's pool: keep it.
void TLPluginActionEX::InitPlugin() {
    insertToPool(new TLToolMeasureAngle);
    insertToPool(new TLToolMeasureArea);
    insertToPool(new TLToolMeasureGirth);
    insertToPool(new TLToolMeasureLine);
    insertToPool(new TLToolEditPoint);
    insertToPool(new TLToolEditLine);
    insertToPool(new TLToolCollectCut);
    insertToPool(new TLToolExtension);
    insertToPool(new TLToolInterrupt);
    insertToPool(new TLCmdDigitizeLine);
    insertToPool(new TLCmdDigitizePoint);
    insertToPool(new TLCmdDigitizePolygon);
    insertToPool(new TLCmdDigitizeCompoundGraphics);
    insertToPool(new TLCmdDigitizeFreehandRectangle);
    insertToPool(new TLCmdDigitizeRectangle);
    insertToPool(new TLCmdDigitizeRegularPolygon);
    insertToPool(new TLCmdDigitizeSquare);
    insertToPool(new TLCmdDigitizeRightDoubleLine);
    insertToPool(new TLCmdDigitizeLeftDoubleLine);
    insertToPool(new TLCmdDigitizeTripleParallelLine);
    insertToPool(new TLCmdDigitizeArc);
    insertToPool(new TLCmdDigitizeArrow);
    insertToPool(new TLCmdDigitizeCircle);
    insertToPool(new TLCmdDigitizeEllipse);
    insertToPool(new TLCmdDigitizeFlag);
    insertToPool(new TLCmdDigitizeRing);
    insertToPool(new TLDigitizeStreamLine);
    insertToPool(new TLDigitizeOffsetDistance);
    insertToPool(new TLDigitizeParallelLine);
    insertToPool(new TLDigitizeVerticalDistance);
    insertToPool(new TLDigitizeMicroTraverse);
    insertToPool(new TLDigitizeDirectionIntersection);
    insertToPool(new TLDigitizeForwardIntersection);
    insertToPool(new TLDigitizeSideIntersection);
    insertToPool(new TLDigitizeBackwardIntersection);
    insertToPool(new TLToolViewPixelVal);
    insertToPool(new TLToolPixelInspector);
    insertToPool(new TLToolIdentifyFeature);
    insertToPool(new TLToolIdentifyRoute);
    insertToPool(new TLToolBisectingLine);
    insertToPool(new TLToolEditAttributes);
    insertToPool(new TLToolAddAnnotation);
    insertToPool(new TLToolEditAnnotation);
    insertToPool(new TLToolAdvancedEditAnnotation);
    insertToPool(new TLToolAdvancedMoveAnnotation);
    insertToPool(new TLToolPartCopy);
    insertToPool(new TLToolPartConnect);
    insertToPool(new TLToolPartOffset);
    insertToPool(new TLToolWholeOffset);
    insertToPool(new TLAspectCalculation);
    insertToPool(new TLSlopeCalculation);
    insertToPool(new TLSurfaceAreaMeasurement);
    insertToPool(new TLMeasurementForSurfaceDistance);
    insertToPool(new TLImageLocalModify);
    insertToPool(new TLToolEdgeMatching);
    insertToPool(new TLToolCopyBlock);
    insertToPool(new TLToolShieldRectangle);
    insertToPool(new TLToolShieldPolygon);
    insertToPool(new TLToolShieldSelection);
    insertToPool(new TLToolShieldAreasClear);
    insertToPool(new TLToolExportRenderStyle);
    insertToPool(new TLToolExportRenderSLDStyle);
    insertToPool(new TLToolImageSampleCollect);
    insertToPool(new TLToolPolygonCutPolygon);
    insertToPool(new TmToolImgSemiAutoRecog);
    insertToPool(new TLToolDoubleLine);
}

void TLPluginActionEX::insertToPool(TLRefPtr<TLTool> tool) {
    TLCMDPool::GetInstance()->AddTool(tool.get());
}

}  // namespace TMObjects
