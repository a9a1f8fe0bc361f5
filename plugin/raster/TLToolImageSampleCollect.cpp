#include "raster/TLToolImageSampleCollect.h"

namespace TMObjects {

TLToolImageSampleCollect::TLToolImageSampleCollect() = default;

TLToolImageSampleCollect::TLToolImageSampleCollect(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolImageSampleCollect::~TLToolImageSampleCollect() = default;

}  // namespace TMObjects
