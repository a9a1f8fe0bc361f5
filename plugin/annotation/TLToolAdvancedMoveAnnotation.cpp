#include "annotation/TLToolAdvancedMoveAnnotation.h"

namespace TMObjects {

TLToolAdvancedMoveAnnotation::TLToolAdvancedMoveAnnotation() = default;

TLToolAdvancedMoveAnnotation::TLToolAdvancedMoveAnnotation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolAdvancedMoveAnnotation::~TLToolAdvancedMoveAnnotation() = default;

}  // namespace TMObjects
