#include "export/TLToolExportRenderStyle.h"

namespace TMObjects {

// The export commands are the only tools that carry a name of their own: their class name.
TLToolExportRenderStyle::TLToolExportRenderStyle() {
    mName = TLString("TLToolExportRenderStyle");
}

TLToolExportRenderStyle::TLToolExportRenderStyle(TLToolBuddy* buddy) : TLTool(buddy) {
    mName = TLString("TLToolExportRenderStyle");
}

TLToolExportRenderStyle::~TLToolExportRenderStyle() = default;

bool TLToolExportRenderStyle::IsCmd() {
    return true;
}

}  // namespace TMObjects
