#include "edit/TLToolPolygonCutPolygon.h"

namespace TMObjects {

TLToolPolygonCutPolygon::TLToolPolygonCutPolygon() = default;

TLToolPolygonCutPolygon::TLToolPolygonCutPolygon(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPolygonCutPolygon::~TLToolPolygonCutPolygon() = default;

bool TLToolPolygonCutPolygon::IsCmd() {
    return false;
}

}  // namespace TMObjects
