#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Exports a layer's symbology as a Styled Layer Descriptor document through the converter
// dialog, which it opens on the map's layers. All the work happens in activate.
class TL_ACTIONEX_EXPORT TLToolExportRenderSLDStyle : public TLTool {
public:
    TLToolExportRenderSLDStyle();
    explicit TLToolExportRenderSLDStyle(TLToolBuddy* buddy);
    ~TLToolExportRenderSLDStyle() override;

    void activate() override;
    // Does its whole work in activate, so the host runs it as a one-shot command.
    bool IsCmd() override;
};

}  // namespace TMObjects
