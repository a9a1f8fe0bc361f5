#include "annotation/TLToolAddAnnotation.h"

namespace TMObjects {

TLToolAddAnnotation::TLToolAddAnnotation() = default;

TLToolAddAnnotation::TLToolAddAnnotation(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolAddAnnotation::~TLToolAddAnnotation() = default;

}  // namespace TMObjects
