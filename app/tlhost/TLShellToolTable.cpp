#include "TLShellToolTable.h"

#include <string>
#include <typeinfo>

#include "tlmap/TLCMDPool.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

const std::vector<TLShellToolTable::Entry>& TLShellToolTable::Entries() {
    static const std::vector<Entry> entries = {
        {"TLToolMeasureAngle", "Measurement", NotBuilt},
        {"TLToolMeasureArea", "Measurement", NotBuilt},
        {"TLToolMeasureGirth", "Measurement", NotBuilt},
        {"TLToolMeasureLine", "Measurement", NotBuilt},
        {"TLToolEditPoint", "Feature editing", NotBuilt},
        {"TLToolEditLine", "Feature editing", NotBuilt},
        {"TLToolCollectCut", "Feature editing", NotBuilt},
        {"TLToolExtension", "Feature editing", NotBuilt},
        {"TLToolInterrupt", "Feature editing", NotBuilt},
        {"TLCmdDigitizeLine", "Digitizing", Built},
        {"TLCmdDigitizePoint", "Digitizing", Built},
        {"TLCmdDigitizePolygon", "Digitizing", Built},
        {"TLCmdDigitizeCompoundGraphics", "Digitizing", NoBehaviour},
        {"TLCmdDigitizeFreehandRectangle", "Digitizing", Built},
        {"TLCmdDigitizeRectangle", "Digitizing", Built},
        {"TLCmdDigitizeRegularPolygon", "Digitizing", Built},
        {"TLCmdDigitizeSquare", "Digitizing", Built},
        {"TLCmdDigitizeRightDoubleLine", "Curves and parallel lines", NotBuilt},
        {"TLCmdDigitizeLeftDoubleLine", "Curves and parallel lines", NotBuilt},
        {"TLCmdDigitizeTripleParallelLine", "Curves and parallel lines", NoBehaviour},
        {"TLCmdDigitizeArc", "Curves and parallel lines", NotBuilt},
        {"TLCmdDigitizeArrow", "Plotted symbols", NotBuilt},
        {"TLCmdDigitizeCircle", "Curves and parallel lines", NotBuilt},
        {"TLCmdDigitizeEllipse", "Curves and parallel lines", NotBuilt},
        {"TLCmdDigitizeFlag", "Plotted symbols", NotBuilt},
        {"TLCmdDigitizeRing", "Curves and parallel lines", NotBuilt},
        {"TLDigitizeStreamLine", "Curves and parallel lines", NoBehaviour},
        {"TLDigitizeOffsetDistance", "Survey construction", NotBuilt},
        {"TLDigitizeParallelLine", "Survey construction", NoBehaviour},
        {"TLDigitizeVerticalDistance", "Survey construction", NoBehaviour},
        {"TLDigitizeMicroTraverse", "Survey construction", NotBuilt},
        {"TLDigitizeDirectionIntersection", "Survey construction", NoBehaviour},
        {"TLDigitizeForwardIntersection", "Survey construction", NotBuilt},
        {"TLDigitizeSideIntersection", "Survey construction", NotBuilt},
        {"TLDigitizeBackwardIntersection", "Survey construction", NotBuilt},
        {"TLToolViewPixelVal", "Raster analysis", NotBuilt},
        {"TLToolPixelInspector", "Raster analysis", NotBuilt},
        {"TLToolIdentifyFeature", "Identify", NotBuilt},
        {"TLToolIdentifyRoute", "Identify", NoBehaviour},
        {"TLToolBisectingLine", "Feature editing", NoBehaviour},
        {"TLToolEditAttributes", "Attribute editing", NotBuilt},
        {"TLToolAddAnnotation", "Annotation", NotBuilt},
        {"TLToolEditAnnotation", "Annotation", NotBuilt},
        {"TLToolAdvancedEditAnnotation", "Annotation", NoBehaviour},
        {"TLToolAdvancedMoveAnnotation", "Annotation", NoBehaviour},
        {"TLToolPartCopy", "Feature editing", NotBuilt},
        {"TLToolPartConnect", "Feature editing", NotBuilt},
        {"TLToolPartOffset", "Feature editing", NotBuilt},
        {"TLToolWholeOffset", "Feature editing", NotBuilt},
        {"TLAspectCalculation", "Raster analysis", NotBuilt},
        {"TLSlopeCalculation", "Raster analysis", NotBuilt},
        {"TLSurfaceAreaMeasurement", "Raster analysis", NotBuilt},
        {"TLMeasurementForSurfaceDistance", "Raster analysis", NotBuilt},
        {"TLImageLocalModify", "Raster analysis", NoBehaviour},
        {"TLToolEdgeMatching", "Feature editing", NotBuilt},
        {"TLToolCopyBlock", "Feature editing", NoBehaviour},
        {"TLToolShieldRectangle", "Map masking", NotBuilt},
        {"TLToolShieldPolygon", "Map masking", NotBuilt},
        {"TLToolShieldSelection", "Map masking", NotBuilt},
        {"TLToolShieldAreasClear", "Map masking", NotBuilt},
        {"TLToolExportRenderStyle", "Style export", NotBuilt},
        {"TLToolExportRenderSLDStyle", "Style export", NotBuilt},
        {"TLToolImageSampleCollect", "Raster analysis", NoBehaviour},
        {"TLToolPolygonCutPolygon", "Feature editing", NotBuilt},
        {"TmToolImgSemiAutoRecog", "Raster analysis", NoBehaviour},
        {"TLToolDoubleLine", "Feature editing", NoBehaviour},
    };
    return entries;
}

QStringList TLShellToolTable::Subsystems() {
    QStringList names;
    for (const Entry& entry : Entries())
        if (!names.contains(entry.subsystem)) names << entry.subsystem;
    return names;
}

int TLShellToolTable::IndexOf(const QString& className) {
    for (int i = 0; i < Count(); ++i)
        if (className == Entries()[std::size_t(i)].className) return i;
    return -1;
}

QString TLShellToolTable::StatusText(Status status) {
    switch (status) {
        case Built:
            return QStringLiteral("built");
        case NotBuilt:
            return QStringLiteral("not built");
        case NoBehaviour:
            return QStringLiteral("not built (no behaviour defined)");
    }
    return QString();
}

bool TLShellToolTable::IsOfClass(const TLTool* tool, const char* className) {
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

TLTool* TLShellToolTable::PoolTool(int index) {
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
