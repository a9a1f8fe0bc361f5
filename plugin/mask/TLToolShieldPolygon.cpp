#include "mask/TLToolShieldPolygon.h"

namespace TMObjects {

TLToolShieldPolygon::TLToolShieldPolygon() = default;

TLToolShieldPolygon::TLToolShieldPolygon(TLToolBuddy* buddy) : TLToolShieldAreas(buddy) {}

TLToolShieldPolygon::~TLToolShieldPolygon() = default;

}  // namespace TMObjects
