#include "mask/TLToolShieldAreasClear.h"

#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

TLToolShieldAreasClear::TLToolShieldAreasClear() = default;

TLToolShieldAreasClear::TLToolShieldAreasClear(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolShieldAreasClear::~TLToolShieldAreasClear() = default;

void TLToolShieldAreasClear::activate() {
    mActive = true;
    if (!mBuddy || !mBuddy->HasActiveMap()) return;
    TLMapView* view = mBuddy->GetMapView();
    if (!view) return;
    view->setClipPolygon(nullptr);
    view->UpdateView(true);
}

bool TLToolShieldAreasClear::IsCmd() {
    return true;
}

}  // namespace TMObjects
