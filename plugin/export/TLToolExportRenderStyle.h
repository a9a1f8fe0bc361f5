#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLFeatureLayer;
class TLStyleDB;

// Exports the styles in use on the feature layers to a symbol library: the user names a
// ".style" file, every style of a single symbol, categorized or specified render is added to
// it (a style without a name is named after its layer) and the library is saved. An existing
// library is appended to. All the work happens in activate.
class TL_ACTIONEX_EXPORT TLToolExportRenderStyle : public TLTool {
public:
    TLToolExportRenderStyle();
    explicit TLToolExportRenderStyle(TLToolBuddy* buddy);
    ~TLToolExportRenderStyle() override;

    void activate() override;
    // Does its whole work in activate, so the host runs it as a one-shot command.
    bool IsCmd() override;

private:
    // Adds the styles of the layer's render to the library, naming those without a name.
    static void addLayerStyles(TLStyleDB& library, const TLFeatureLayer& layer);
};

}  // namespace TMObjects
