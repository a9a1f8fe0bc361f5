#include "export/TLToolExportRenderSLDStyle.h"

#include <QWidget>

#include "export/TERRALOOM_SLD_Converter.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

// The export commands are the only tools that carry a name of their own: their class name.
TLToolExportRenderSLDStyle::TLToolExportRenderSLDStyle() {
    mName = TLString("TLToolExportRenderSLDStyle");
}

TLToolExportRenderSLDStyle::TLToolExportRenderSLDStyle(TLToolBuddy* buddy) : TLTool(buddy) {
    mName = TLString("TLToolExportRenderSLDStyle");
}

TLToolExportRenderSLDStyle::~TLToolExportRenderSLDStyle() = default;

bool TLToolExportRenderSLDStyle::IsCmd() {
    return true;
}

void TLToolExportRenderSLDStyle::activate() {
    mActive = true;
    if (!mBuddy || !mBuddy->HasActiveMap()) return;
    TLMapView* view = mBuddy->GetMapView();
    if (!view || !view->GetMap()) return;
    TERRALOOM_SLD_Converter dialog(view->GetMap()->GetLayers(true),
                                   QWidget::find(WId(mBuddy->MainWindowId())));
    dialog.exec();
}

}  // namespace TMObjects
