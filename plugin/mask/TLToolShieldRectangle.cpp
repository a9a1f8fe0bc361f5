#include "mask/TLToolShieldRectangle.h"

namespace TMObjects {

TLToolShieldRectangle::TLToolShieldRectangle() = default;

TLToolShieldRectangle::TLToolShieldRectangle(TLToolBuddy* buddy) : TLToolShieldAreas(buddy) {}

TLToolShieldRectangle::~TLToolShieldRectangle() = default;

}  // namespace TMObjects
