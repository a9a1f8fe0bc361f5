#include "annotation/TLToolAdvancedEditAnnotation.h"

namespace TMObjects {

TLToolAdvancedEditAnnotation::TLToolAdvancedEditAnnotation() = default;

TLToolAdvancedEditAnnotation::TLToolAdvancedEditAnnotation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolAdvancedEditAnnotation::~TLToolAdvancedEditAnnotation() = default;

}  // namespace TMObjects
