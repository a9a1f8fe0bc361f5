#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Exports a layer's symbology as a Styled Layer Descriptor document.
class TL_ACTIONEX_EXPORT TLToolExportRenderSLDStyle : public TLTool {
public:
    TLToolExportRenderSLDStyle();
    explicit TLToolExportRenderSLDStyle(TLToolBuddy* buddy);
    ~TLToolExportRenderSLDStyle() override;
    // Does its whole work in activate, so the host runs it as a one-shot command.
    bool IsCmd() override;
};

}  // namespace TMObjects
