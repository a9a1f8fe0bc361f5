#include "hostkit/TLToolTable.h"

#include <string>
#include <typeinfo>

#include "tlmap/TLCMDPool.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

const std::vector<TLToolTable::Entry>& TLToolTable::Entries() {
    static const std::vector<Entry> entries = {
        {"TLToolMeasureAngle", nullptr, "Measurement", Built},
        {"TLToolMeasureArea", nullptr, "Measurement", Built},
        {"TLToolMeasureGirth", nullptr, "Measurement", Built},
        {"TLToolMeasureLine", nullptr, "Measurement", Built},
        {"TLToolEditPoint", nullptr, "Feature editing", Built},
        {"TLToolEditLine", nullptr, "Feature editing", Built},
        {"TLToolCollectCut", "Trimline", "Feature editing", NotBuilt},
        {"TLToolExtension", "Extension", "Feature editing", NotBuilt},
        {"TLToolInterrupt", "Interrupt", "Feature editing", NotBuilt},
        {"TLCmdDigitizeLine", "DigitizeLine", "Digitizing", Built},
        {"TLCmdDigitizePoint", "DigitizePoint", "Digitizing", Built},
        {"TLCmdDigitizePolygon", "DigitizePolygon", "Digitizing", Built},
        {"TLCmdDigitizeCompoundGraphics", "DigitizeCompoundGraphics", "Digitizing", NoBehaviour},
        {"TLCmdDigitizeFreehandRectangle", "DigitizeFreehandRectangle", "Digitizing", Built},
        {"TLCmdDigitizeRectangle", "DigitizeRectangle", "Digitizing", Built},
        {"TLCmdDigitizeRegularPolygon", "DigitizeRegularPolygon", "Digitizing", Built},
        {"TLCmdDigitizeSquare", "DigitizeSquare", "Digitizing", Built},
        {"TLCmdDigitizeRightDoubleLine", "DigitizeRightDoubleLine", "Curves and parallel lines",
         Built},
        {"TLCmdDigitizeLeftDoubleLine", "DigitizeLeftDoubleLine", "Curves and parallel lines",
         Built},
        {"TLCmdDigitizeTripleParallelLine", "DigitizeTripleParallelLine",
         "Curves and parallel lines", NoBehaviour},
        {"TLCmdDigitizeArc", "DigitizeArc", "Curves and parallel lines", Built},
        {"TLCmdDigitizeArrow", "DigitizeArrow", "Plotted symbols", Built},
        {"TLCmdDigitizeCircle", "DigitizeCircle", "Curves and parallel lines", Built},
        {"TLCmdDigitizeEllipse", "DigitizeEllipse", "Curves and parallel lines", Built},
        {"TLCmdDigitizeFlag", "DigitizeFlag", "Plotted symbols", Built},
        {"TLCmdDigitizeRing", "DigitizeRing", "Curves and parallel lines", Built},
        {"TLDigitizeStreamLine", "DigitizeStreamLine", "Curves and parallel lines", NoBehaviour},
        {"TLDigitizeOffsetDistance", nullptr, "Survey construction", Built},
        {"TLDigitizeParallelLine", nullptr, "Survey construction", NoBehaviour},
        {"TLDigitizeVerticalDistance", nullptr, "Survey construction", NoBehaviour},
        {"TLDigitizeMicroTraverse", nullptr, "Survey construction", Built},
        {"TLDigitizeDirectionIntersection", nullptr, "Survey construction", NoBehaviour},
        {"TLDigitizeForwardIntersection", nullptr, "Survey construction", Built},
        {"TLDigitizeSideIntersection", nullptr, "Survey construction", Built},
        {"TLDigitizeBackwardIntersection", nullptr, "Survey construction", Built},
        {"TLToolViewPixelVal", nullptr, "Raster analysis", Built},
        {"TLToolPixelInspector", nullptr, "Raster analysis", Built},
        {"TLToolIdentifyFeature", nullptr, "Identify", Built},
        {"TLToolIdentifyRoute", nullptr, "Identify", NoBehaviour},
        {"TLToolBisectingLine", nullptr, "Feature editing", NoBehaviour},
        {"TLToolEditAttributes", nullptr, "Attribute editing", Built},
        {"TLToolAddAnnotation", nullptr, "Annotation", Built},
        {"TLToolEditAnnotation", nullptr, "Annotation", Built},
        {"TLToolAdvancedEditAnnotation", nullptr, "Annotation", NoBehaviour},
        {"TLToolAdvancedMoveAnnotation", nullptr, "Annotation", NoBehaviour},
        {"TLToolPartCopy", "Part Copy", "Feature editing", Built},
        {"TLToolPartConnect", nullptr, "Feature editing", Built},
        {"TLToolPartOffset", "Part Offset", "Feature editing", Built},
        {"TLToolWholeOffset", "Whole Offset", "Feature editing", Built},
        {"TLAspectCalculation", nullptr, "Raster analysis", Built},
        {"TLSlopeCalculation", nullptr, "Raster analysis", Built},
        {"TLSurfaceAreaMeasurement", nullptr, "Raster analysis", Built},
        {"TLMeasurementForSurfaceDistance", nullptr, "Raster analysis", Built},
        {"TLImageLocalModify", nullptr, "Raster analysis", NoBehaviour},
        {"TLToolEdgeMatching", nullptr, "Feature editing", Built},
        {"TLToolCopyBlock", nullptr, "Feature editing", NoBehaviour},
        {"TLToolShieldRectangle", nullptr, "Map masking", Built},
        {"TLToolShieldPolygon", nullptr, "Map masking", Built},
        {"TLToolShieldSelection", nullptr, "Map masking", Built},
        {"TLToolShieldAreasClear", nullptr, "Map masking", Built},
        {"TLToolExportRenderStyle", nullptr, "Style export", NotBuilt},
        {"TLToolExportRenderSLDStyle", nullptr, "Style export", NotBuilt},
        {"TLToolImageSampleCollect", nullptr, "Raster analysis", NoBehaviour},
        {"TLToolPolygonCutPolygon", "Polygon cut polygon", "Feature editing", Built},
        {"TmToolImgSemiAutoRecog", nullptr, "Raster analysis", NoBehaviour},
        {"TLToolDoubleLine", nullptr, "Feature editing", NoBehaviour},
    };
    return entries;
}

int TLToolTable::IndexOf(const std::string& className) {
    for (int i = 0; i < Count(); ++i)
        if (className == Entries()[std::size_t(i)].className) return i;
    return -1;
}

int TLToolTable::IndexOfRegisteredName(const std::string& name) {
    for (int i = 0; i < Count(); ++i) {
        const char* registered = Entries()[std::size_t(i)].registeredName;
        if (registered && name == registered) return i;
    }
    return -1;
}

bool TLToolTable::IsOfClass(const TLTool* tool, const char* className) {
    if (!tool) return false;
    // Itanium mangling spells a name as its length followed by the name; matching the whole
    // token keeps TLToolEditLine from answering for TLToolEditLineX and the like.
    const std::string mangled = typeid(*tool).name();
    const std::string token = std::to_string(std::char_traits<char>::length(className)) + className;
    const std::size_t at = mangled.find(token);
    if (at == std::string::npos) return false;
    const std::size_t end = at + token.size();
    return end == mangled.size() || mangled[end] == 'E';
}

TLTool* TLToolTable::PoolTool(int index) {
    if (index < 0 || index >= Count()) return nullptr;
    const char* className = Entries()[std::size_t(index)].className;
    TLCMDPool* pool = TLCMDPool::GetInstance();
    if (index < pool->GetToolCount() && IsOfClass(pool->GetTool(index), className))
        return pool->GetTool(index);
    for (int i = 0; i < pool->GetToolCount(); ++i)
        if (IsOfClass(pool->GetTool(i), className)) return pool->GetTool(i);
    return nullptr;
}

}  // namespace TMObjects
