#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Exports the styles in use on the feature layers to a symbol library.
class TL_ACTIONEX_EXPORT TLToolExportRenderStyle : public TLTool {
public:
    TLToolExportRenderStyle();
    explicit TLToolExportRenderStyle(TLToolBuddy* buddy);
    ~TLToolExportRenderStyle() override;
    // Does its whole work in activate, so the host runs it as a one-shot command.
    bool IsCmd() override;
};

}  // namespace TMObjects
