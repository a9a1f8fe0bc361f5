#include "data/CPolygonOverlay.h"
#include "data/CdataManager.h"

namespace TMObjects {

namespace {

const int kCutByPolygons = 13;
const int kCutByLines = 14;

}  // namespace

int CdataManager::twoBoolOperate(int firstPackage, int secondPackage, int operation, int, int) {
    const CvectorPackageData* first = mPackages.getAt(firstPackage);
    const CvectorPackageData* second = mPackages.getAt(secondPackage);
    if (!first || !second || (operation != kCutByPolygons && operation != kCutByLines)) return -1;

    CPolygonOverlay overlay;
    for (int i = 0; i < first->entity_GetSize(); ++i)
        overlay.AddPolygon(first->entity_GetAt(i), true);
    for (int i = 0; i < second->entity_GetSize(); ++i) {
        if (operation == kCutByPolygons)
            overlay.AddPolygon(second->entity_GetAt(i), false);
        else
            overlay.AddCutter(second->entity_GetAt(i));
    }
    std::vector<CPolygonOverlay::Piece> pieces =
        operation == kCutByPolygons ? overlay.Overlay() : overlay.CutByLines();

    const int result = mPackages.add();
    CPolygonOverlay::Store(pieces, mPackages.getAt(firstPackage), mPackages.getAt(result));
    return result;
}

}  // namespace TMObjects
