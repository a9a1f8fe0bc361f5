#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLRubberBand;
class TLEditor;
class TLFeatureLayer;
class TLSnapTool;
template <class Tool>
class TLDoubleLineMachine;

// Digitizes a line as the right one of a pair: the user clicks its vertices and types widths in
// metres, and the command builds the left line beside it with mitred corners. Both are written
// as two line features in one undoable step.
class TL_ACTIONEX_EXPORT TLCmdDigitizeRightDoubleLine : public TLTool {
public:
    TLCmdDigitizeRightDoubleLine();
    explicit TLCmdDigitizeRightDoubleLine(TLToolBuddy* buddy);
    ~TLCmdDigitizeRightDoubleLine() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // Writes both lines as two features in one "add feature" step; `rect` grows by their bounds
    // in map coordinates.
    bool EndEntity(TLRect& rect);
    void Reset();
    // The preview from the last vertex to (x, y) on the two given bands.
    void DrawTempRubberBand(double x, double y, TLRubberBand* bandA, TLRubberBand* bandB);
    // The offset of (x, y) for the direction from (ax, ay) to (bx, by), into calcPoint.
    void jisuan(double x, double y, double ax, double ay, double bx, double by);
    // The offset of `b` for the direction from `a` to `b`.
    TLPoint CaculateFouthyPoint(TLPoint a, TLPoint b);

private:
    friend class TLDoubleLineMachine<TLCmdDigitizeRightDoubleLine>;
    using Machine = TLDoubleLineMachine<TLCmdDigitizeRightDoubleLine>;
    Machine machine();

    // The computed line lies left of the digitizing direction. A vertical clicked segment keeps
    // its infinite slope, the preview guards with a coarser divisor, and the lines under way
    // become snap targets.
    static constexpr double kSide = -1.0;
    static constexpr double kClickGuard = 0.0;
    static constexpr double kMoveNewGuard = 1e-5;
    static constexpr double kMoveOldGuard = 1e-5;
    static constexpr bool kDrawsSnapOnClick = false;
    static constexpr bool kCachesDrawnLine = true;
    static constexpr bool kQuietDoubleClick = true;
    static constexpr const char* kRegisteredName = "DigitizeRightDoubleLine";
    static constexpr const char* kCommandLine = "Command:Drawing RightDoubleLine";
    static constexpr const char* kDoubleClickLine = "Command: Right parallel line, width(m):";

    TLRubberBand* mainBand = nullptr;
    TLRubberBand* offsetBand = nullptr;
    TLRubberBand* tempMainBand = nullptr;
    TLRubberBand* tempOffsetBand = nullptr;
    TLPoint lastPoint;
    TLPoint cursorPoint;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> mainPoints;
    std::vector<TLPoint> offsetPoints;
    // One "vertices,width" entry for each width taken; kept for the record only.
    std::vector<TLString> widthRecords;
    int pointCount = 0;
    // The width the arithmetic uses, in the unit the map is shown in.
    double offsetWidth = 10.0;
    // The width as typed, in metres.
    double enteredWidth = 10.0;
    TLPoint segStart;
    TLPoint segEnd;
    TLPoint offsetCorner;
    TLPoint offsetEnd;
    TLPoint calcPoint;
    // The slopes of the last two clicked segments, written by turns: odd and even vertex counts.
    double slopeOdd = 0.0;
    double slopeEven = 0.0;
    TLPoint previewCorner;
    TLPoint previewEnd;
    TLSnapTool* snapTool = nullptr;
};

}  // namespace TMObjects
