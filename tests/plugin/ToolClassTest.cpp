// The tool classes as code that links the plugin sees them: what each constructor leaves in the
// tool, and which classes share the masking base.
#include <gtest/gtest.h>

#include <type_traits>

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
#include "edit/TLToolEditFeature.h"
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
#include "hostkit/TLHostBuddy.h"
#include "identify/TLToolIdentifyFeature.h"
#include "identify/TLToolIdentifyRoute.h"
#include "mask/TLToolShieldAreas.h"
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

namespace {

using namespace TMObjects;

// Reads the buddy pointer that tools keep to themselves.
struct BuddyOf : TLTool {
    static TLToolBuddy* Get(TLTool* tool) { return tool->*(&BuddyOf::mBuddy); }
};

// Both constructors of one class: the default one leaves the buddy null, the other stores it, and
// otherwise they make the same tool.
template <class Tool>
void ExpectConstructorsAgree(const char* name) {
    TLHostBuddy buddy;
    TLRefPtr<TLTool> plain(new Tool);
    TLRefPtr<TLTool> given(new Tool(&buddy));
    EXPECT_EQ(BuddyOf::Get(plain.get()), nullptr) << name;
    EXPECT_EQ(BuddyOf::Get(given.get()), &buddy) << name;
    EXPECT_EQ(given->getName(), plain->getName()) << name;
    EXPECT_EQ(given->IsCmd(), plain->IsCmd()) << name;
    EXPECT_FALSE(given->isActive()) << name;
    // Nothing was said to the buddy by merely making the tool.
    EXPECT_TRUE(buddy.Events().empty()) << name;
}

#define TL_EXPECT_CONSTRUCTORS(Tool) ExpectConstructorsAgree<Tool>(#Tool);

TEST(ToolClasses, DefaultConstructorLeavesTheBuddyNullTheOtherStoresIt){
    TL_EXPECT_CONSTRUCTORS(TLToolMeasureAngle) TL_EXPECT_CONSTRUCTORS(TLToolMeasureArea) TL_EXPECT_CONSTRUCTORS(
        TLToolMeasureGirth) TL_EXPECT_CONSTRUCTORS(TLToolMeasureLine) TL_EXPECT_CONSTRUCTORS(TLToolEditPoint)
        TL_EXPECT_CONSTRUCTORS(TLToolEditLine) TL_EXPECT_CONSTRUCTORS(TLToolCollectCut) TL_EXPECT_CONSTRUCTORS(
            TLToolExtension) TL_EXPECT_CONSTRUCTORS(TLToolInterrupt) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeLine)
            TL_EXPECT_CONSTRUCTORS(TLCmdDigitizePoint) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizePolygon) TL_EXPECT_CONSTRUCTORS(
                TLCmdDigitizeCompoundGraphics) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeFreehandRectangle)
                TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeRectangle) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeRegularPolygon) TL_EXPECT_CONSTRUCTORS(
                    TLCmdDigitizeSquare) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeRightDoubleLine)
                    TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeLeftDoubleLine) TL_EXPECT_CONSTRUCTORS(
                        TLCmdDigitizeTripleParallelLine) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeArc)
                        TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeArrow) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeCircle) TL_EXPECT_CONSTRUCTORS(
                            TLCmdDigitizeEllipse) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeFlag) TL_EXPECT_CONSTRUCTORS(TLCmdDigitizeRing)
                            TL_EXPECT_CONSTRUCTORS(TLDigitizeStreamLine) TL_EXPECT_CONSTRUCTORS(
                                TLDigitizeOffsetDistance) TL_EXPECT_CONSTRUCTORS(TLDigitizeParallelLine)
                                TL_EXPECT_CONSTRUCTORS(TLDigitizeVerticalDistance) TL_EXPECT_CONSTRUCTORS(
                                    TLDigitizeMicroTraverse) TL_EXPECT_CONSTRUCTORS(TLDigitizeDirectionIntersection)
                                    TL_EXPECT_CONSTRUCTORS(TLDigitizeForwardIntersection) TL_EXPECT_CONSTRUCTORS(
                                        TLDigitizeSideIntersection) TL_EXPECT_CONSTRUCTORS(TLDigitizeBackwardIntersection)
                                        TL_EXPECT_CONSTRUCTORS(TLToolViewPixelVal) TL_EXPECT_CONSTRUCTORS(
                                            TLToolPixelInspector) TL_EXPECT_CONSTRUCTORS(TLToolIdentifyFeature)
                                            TL_EXPECT_CONSTRUCTORS(TLToolIdentifyRoute) TL_EXPECT_CONSTRUCTORS(
                                                TLToolBisectingLine) TL_EXPECT_CONSTRUCTORS(TLToolEditAttributes)
                                                TL_EXPECT_CONSTRUCTORS(TLToolAddAnnotation) TL_EXPECT_CONSTRUCTORS(
                                                    TLToolEditAnnotation) TL_EXPECT_CONSTRUCTORS(TLToolAdvancedEditAnnotation)
                                                    TL_EXPECT_CONSTRUCTORS(TLToolAdvancedMoveAnnotation) TL_EXPECT_CONSTRUCTORS(
                                                        TLToolPartCopy) TL_EXPECT_CONSTRUCTORS(TLToolPartConnect)
                                                        TL_EXPECT_CONSTRUCTORS(TLToolPartOffset) TL_EXPECT_CONSTRUCTORS(
                                                            TLToolWholeOffset) TL_EXPECT_CONSTRUCTORS(TLAspectCalculation)
                                                            TL_EXPECT_CONSTRUCTORS(TLSlopeCalculation) TL_EXPECT_CONSTRUCTORS(
                                                                TLSurfaceAreaMeasurement) TL_EXPECT_CONSTRUCTORS(TLMeasurementForSurfaceDistance)
                                                                TL_EXPECT_CONSTRUCTORS(TLImageLocalModify) TL_EXPECT_CONSTRUCTORS(
                                                                    TLToolEdgeMatching) TL_EXPECT_CONSTRUCTORS(TLToolCopyBlock)
                                                                    TL_EXPECT_CONSTRUCTORS(TLToolShieldRectangle) TL_EXPECT_CONSTRUCTORS(
                                                                        TLToolShieldPolygon) TL_EXPECT_CONSTRUCTORS(TLToolShieldSelection)
                                                                        TL_EXPECT_CONSTRUCTORS(TLToolShieldAreasClear) TL_EXPECT_CONSTRUCTORS(
                                                                            TLToolExportRenderStyle)
                                                                            TL_EXPECT_CONSTRUCTORS(
                                                                                TLToolExportRenderSLDStyle)
                                                                                TL_EXPECT_CONSTRUCTORS(
                                                                                    TLToolImageSampleCollect)
                                                                                    TL_EXPECT_CONSTRUCTORS(
                                                                                        TLToolPolygonCutPolygon)
                                                                                        TL_EXPECT_CONSTRUCTORS(
                                                                                            TmToolImgSemiAutoRecog)
                                                                                            TL_EXPECT_CONSTRUCTORS(
                                                                                                TLToolDoubleLine)
                                                                                                TL_EXPECT_CONSTRUCTORS(
                                                                                                    TLToolShieldAreas)
                                                                                                    TL_EXPECT_CONSTRUCTORS(
                                                                                                        TLToolEditFeature)}

TEST(ToolClasses, OnlyTheThreeShieldToolsShareTheMaskingBase) {
    EXPECT_TRUE((std::is_base_of_v<TLToolShieldAreas, TLToolShieldRectangle>));
    EXPECT_TRUE((std::is_base_of_v<TLToolShieldAreas, TLToolShieldPolygon>));
    EXPECT_TRUE((std::is_base_of_v<TLToolShieldAreas, TLToolShieldSelection>));
    EXPECT_FALSE((std::is_base_of_v<TLToolShieldAreas, TLToolShieldAreasClear>));
}

}  // namespace
