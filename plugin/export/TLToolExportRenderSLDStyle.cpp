#include "export/TLToolExportRenderSLDStyle.h"

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

}  // namespace TMObjects
