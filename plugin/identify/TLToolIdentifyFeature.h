#pragma once

#include <QPointer>
#include <vector>

#include "TLPluginExport.h"
#include "identify/TLIdentifyLayerPick.h"
#include "tlmap/TLTool.h"

class TMIdentify;

namespace TMObjects {

class TLCoordinateSystem;
class TLENCLayer;
class TLFeatureLayer;
class TLMap;

// Shows the features and attributes under a click or a dragged rectangle. It never edits and
// leaves every selection as it found it.
class TL_ACTIONEX_EXPORT TLToolIdentifyFeature : public TLTool {
public:
    TLToolIdentifyFeature();
    explicit TLToolIdentifyFeature(TLToolBuddy* buddy);
    ~TLToolIdentifyFeature() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;

private:
    // Device pixels to map coordinates; false without a view or a display transform.
    bool toMap(int x, int y, double& mapX, double& mapY) const;
    void drawDragRectangle(double x, double y);
    void setPickEnvelope(double x, double y, double tolerance);
    void pickLayers(TLMap* map, double tolerance);
    bool eligible(TLFeatureLayer* layer) const;
    void queryLayer(TLFeatureLayer* layer, TLCoordinateSystem* mapReference, double tolerance,
                    bool& found);
    std::vector<TLENCLayer*> chartLayers(TLMap* map) const;
    void showIdentifyDlg(const TLPoint& point);
    void showEncObjectDlg(const std::vector<TLENCLayer*>& layers, const TLPoint& point);

    bool mDragging = false;
    double mStartMapX = 0.0;
    double mStartMapY = 0.0;
    double mStartDevX = 0.0;
    double mStartDevY = 0.0;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMIdentify> mIdentifyDlg;
    std::vector<TLIdentifyLayerPick> mLayerPicks;
    double mPickXMin = 0.0;
    double mPickXMax = 0.0;
    double mPickYMin = 0.0;
    double mPickYMax = 0.0;
};

}  // namespace TMObjects
