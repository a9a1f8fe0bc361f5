#include "edit/TLToolEditFeature.h"

namespace TMObjects {

TLToolEditFeature::TLToolEditFeature() = default;

TLToolEditFeature::TLToolEditFeature(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditFeature::~TLToolEditFeature() = default;

}  // namespace TMObjects
