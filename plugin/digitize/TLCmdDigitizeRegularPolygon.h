#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLRubberBand;
class TLEditor;
class TLFeatureLayer;
class TLSnapTool;

// Digitizes one polygon of 3 to 360 edges, either about a centre (mode 1) or on a given edge
// (mode 2). The number of edges is always typed; centre, radius and edge may be typed or
// clicked.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRegularPolygon : public TLTool {
public:
    TLCmdDigitizeRegularPolygon();
    explicit TLCmdDigitizeRegularPolygon(TLToolBuddy* buddy);
    ~TLCmdDigitizeRegularPolygon() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes what the band shows as one polygon feature; false when it holds three points or
    // fewer or the layer is no polygon layer.
    bool EndEntity();
    void Reset();

private:
    void takeEdgeCount(const TLString& text);
    bool takeCentreOrEdge(const TLString& text);
    void takeRadius(const TLString& text);
    void takeFirstEndpoint(const TLString& text);
    void takeSecondEndpoint(const TLString& text);
    void finish();

    TLRubberBand* band = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    int step = 0;
    int mode = 1;
    TLPoint centre;
    int edgeCount = 0;
    TLSnapTool* snapTool = nullptr;
};

}  // namespace TMObjects
