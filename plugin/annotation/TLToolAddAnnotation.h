#pragma once

#include <memory>

#include "TLPluginExport.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"
#include "tlsde/TLTextElement.h"

namespace TMObjects {

class TLGeometryProject;
class TLLayer;
class TLMapView;

// Places a new annotation where the user clicks: the release opens the add dialog with the
// default style, and its OK writes the feature.
class TL_ACTIONEX_EXPORT TLToolAddAnnotation : public TLTool {
public:
    TLToolAddAnnotation();
    explicit TLToolAddAnnotation(TLToolBuddy* buddy);
    ~TLToolAddAnnotation() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    // Sets the default style of the next annotations (bold, italic, underline, strikethrough,
    // textalign, color, fontname, fontsize, guideline, bgoridxlinew, bgoridxlineclr).
    void setParam(TLString key, TLString value) override;

    // The press point, in the layer's coordinates when they differ from the map's.
    void getDownMapPoint(double& x, double& y);
    const TLTextElement& textElement() const { return mTextElement; }
    int arrowType() const { return mArrowType; }

private:
    void showAddAnnotationDlg(TLMapView* view, TLLayer* layer);

    bool mPressed = false;
    bool mMoved = false;
    double mDownX = 0.0;
    double mDownY = 0.0;
    bool mProjectActive = false;
    std::unique_ptr<TLGeometryProject> mProject;
    TLTextElement mTextElement;
    int mArrowType = 0;
    TLSnapTool mSnap;
};

}  // namespace TMObjects
