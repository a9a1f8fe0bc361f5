#pragma once

#include <cstdint>
#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLRubberBand;
class TLEditor;
class TLFeatureLayer;

// Digitizes a plotted arrow as a computed polygon outline. The type is typed first (simple,
// swallow tail, wide tail, wide swallow tail); the control points are clicked or typed, and the
// outline follows the pointer through them. Only the outline is stored.
class TL_ACTIONEX_EXPORT TLCmdDigitizeArrow : public TLTool {
public:
    TLCmdDigitizeArrow();
    explicit TLCmdDigitizeArrow(TLToolBuddy* buddy);
    ~TLCmdDigitizeArrow() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes what the band shows as one polygon feature. With fewer than four band points the
    // input is dropped and the type goes back to 1; false then and on a layer of another kind.
    bool EndEntity();
    void Reset();
    // The outline of arrow type `type` through `list`, in place of what `outline` held; empty
    // when the list is too short for the type or the outline is undefined.
    void makeUpEntity(int type, const std::vector<TLPoint>& list, std::vector<TLPoint>& outline);
    // Puts the arrow through the control points alone on the band, without the pointer, before
    // a typed end.
    void LastArrowGeometry();

private:
    // The control points with `extra` after them, as the outline of the current type takes them.
    std::vector<TLPoint> candidateList(const TLPoint& extra);
    // Fills the band with the outline of the candidate list; false when there is none.
    bool showCandidate(const TLPoint& extra);
    void showOutline(const std::vector<TLPoint>& outline);
    bool acceptPoint(const TLPoint& point, bool clicked);
    bool tooCloseToFirst(const TLPoint& point, double tolerance) const;
    void finish(double tolerance);
    void restartTooClose();
    bool isWideType() const;

    TLRubberBand* rubberBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    std::int32_t inputState = 0;
    std::int32_t arrowType = 1;
    TLPoint lastPoint;
    TLPoint firstPoint;
    TLPoint cursorPoint;
    std::uint8_t awaitingFirstPoint = 1;
    std::vector<TLPoint> effectivePoints;
};

}  // namespace TMObjects
