#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLTool.h"

class TMEditPointWidget;

namespace TMObjects {

class TLFeatureLayer;
class TLMapView;

// Picks a feature of an editable layer and opens the table of its vertices for editing.
class TL_ACTIONEX_EXPORT TLToolEditLine : public TLTool {
public:
    TLToolEditLine();
    explicit TLToolEditLine(TLToolBuddy* buddy);
    ~TLToolEditLine() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;

    // Brings the view to (x, y), or to the picked feature's centroid when (x, y) is one of its
    // vertices, and marks the spot.
    void centerPoint(double x, double y);

    // The table window; null before the first click.
    TMEditPointWidget* editWidget() const;

private:
    void DisplayBatchEditPoint(TLMapView* view, TLFeatureLayer* layer, int featureId, bool show);
    // The first feature of the layer that the click meets, by the layer's kind; -1 when none.
    int hitInLayer(TLFeatureLayer* layer, const TLPoint& click, double tolerance);
    bool isOnVertex(double x, double y);
    void markPoint(TLMapView* view, const TLPoint& target);

    TLRefPtr<TLGeometry> mGeometry;
    // Guarded: the window is a child of the main window and may go with it.
    QPointer<TMEditPointWidget> mWidget;
};

}  // namespace TMObjects
