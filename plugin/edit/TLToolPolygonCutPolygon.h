#pragma once

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// Cuts the polygons of the edit layer along the outline of a chosen polygon.
class TL_ACTIONEX_EXPORT TLToolPolygonCutPolygon : public TLTool {
public:
    TLToolPolygonCutPolygon();
    explicit TLToolPolygonCutPolygon(TLToolBuddy* buddy);
    ~TLToolPolygonCutPolygon() override;
    // Answers false whatever the base answers: it stays active and takes typed lines through
    // its registration, unlike the one-shot commands.
    bool IsCmd() override;
};

}  // namespace TMObjects
