#include "identify/TLToolIdentifyFeature.h"

namespace TMObjects {

TLToolIdentifyFeature::TLToolIdentifyFeature() = default;

TLToolIdentifyFeature::TLToolIdentifyFeature(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolIdentifyFeature::~TLToolIdentifyFeature() = default;

}  // namespace TMObjects
