#include "annotation/TLToolEditAnnotation.h"

namespace TMObjects {

TLToolEditAnnotation::TLToolEditAnnotation() = default;

TLToolEditAnnotation::TLToolEditAnnotation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditAnnotation::~TLToolEditAnnotation() = default;

}  // namespace TMObjects
