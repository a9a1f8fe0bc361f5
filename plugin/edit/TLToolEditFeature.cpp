#include "edit/TLToolEditFeature.h"

namespace TMObjects {

TLToolEditFeature::TLToolEditFeature() = default;

TLToolEditFeature::TLToolEditFeature(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEditFeature::~TLToolEditFeature() = default;

void TLToolEditFeature::activate() {
    mActive = true;
}

void TLToolEditFeature::deactivate() {
    TLTool::deactivate();
}

bool TLToolEditFeature::OnMouseDown(TLMouseButton, int, int) {
    return false;
}

bool TLToolEditFeature::OnMouseUp(TLMouseButton, int, int) {
    return false;
}

bool TLToolEditFeature::OnMouseMove(TLMouseButton, int, int) {
    return false;
}

bool TLToolEditFeature::OnDblClick(TLMouseButton, int, int) {
    return false;
}

bool TLToolEditFeature::OnKeyDown(int) {
    return false;
}

void TLToolEditFeature::clearCanvas() {}

}  // namespace TMObjects
