#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "digitize/TLDigitizeClickRules.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlmap/TLLayer.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLTool.h"
#include "tlsde/TLQueryFilter.h"

namespace TMObjects {

class TLEditor;
class TLFeatureLayer;
class TLSnapTool;
template <class Tool>
class TLDigitizeMachine;
template <class Tool>
class TLDigitizeSteps;
template <class Tool>
class TLDigitizeValues;

// Digitizes one line feature, possibly of several parts, from clicks, typed points and the
// constructions of the sub-commands OF, CL, CZ, J, YS, LE, AS, PL and PY. E, C, D or a double
// click write the whole band as one feature in one "add feature" step.
class TL_ACTIONEX_EXPORT TLCmdDigitizeLine : public TLTool {
public:
    // The sub-command under way.
    enum ChildCmd {
        ccNone = 0,
        ccOffset = 1,          // OF
        ccChangeLength = 2,    // CL
        ccVertical = 3,        // CZ
        ccInterval = 4,        // J
        ccExtend = 5,          // YS
        ccSpecifyLength = 6,   // LE
        ccMicroTraverse = 7,   // AS
        ccParallel = 8,        // PL
        ccParallelExtend = 9,  // PY
    };

    TLCmdDigitizeLine();
    explicit TLCmdDigitizeLine(TLToolBuddy* buddy);
    ~TLCmdDigitizeLine() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // The edit guard: an editor and a valid, editable layer.
    bool CanEdit() const;
    // Writes the main band as one feature of the edit layer and grows `rect` by its bound in map
    // coordinates.
    bool EndEntity(TLRect& rect);
    void Reset();
    // The filter that highlights the edit layer's features around a picked map point.
    TLQueryFilter SelectFeatureFilter(double x, double y);
    // The dashed guide square to the last segment (x1, y1)-(x2, y2) at its end, towards the
    // pointer (x3, y3).
    void setVerticalGuides(double x1, double y1, double x2, double y2, double x3, double y3);
    void Switch2CC(ChildCmd cmd);

private:
    friend class TLDigitizeMachine<TLCmdDigitizeLine>;
    friend class TLDigitizeSteps<TLCmdDigitizeLine>;
    friend class TLDigitizeValues<TLCmdDigitizeLine>;
    using Machine = TLDigitizeMachine<TLCmdDigitizeLine>;

    // What the shared input machine needs to know of this command.
    static constexpr TLLayer::LayerType kLayerType = TLLayer::LineLayer;
    static constexpr TLRubberBand::RubberBandType kShapeBand = TLRubberBand::LineBand;
    // Each clicked vertex ends the guide too, and every input step counts.
    static constexpr TLDigitizeClickRules kClickRules{true, false, 0, true, true, true};
    static const char* const kRegisteredName;
    static const char* const kInputLayerLine;
    static const char* const kCommandLine;
    static const char* const kWrongLayer;
    static const char* const kFirstPrompt;
    static const char* const kRetryFirstPrompt;
    static const char* const kLengthPrompt;
    static const char* const kParallelPrompt;

    Machine machine();
    void prompt(const char* text);
    void message(const char* text);
    void countPrompt();
    void typedPointPrompt();

    void makeBands();
    TLPoint pressPoint(int x, int y);
    void rightClick();
    void startPart(const TLPoint& p);

    void finish();
    void giveUp();
    void close();
    void closeWithInterval();
    // After a commit: the band and the point list go, and the view redraws what was written.
    void committed(const TLRect& rect, bool resetGuide);

    TLRubberBand* mainBand = nullptr;
    TLRubberBand* guideBand = nullptr;
    TLRubberBand* assistBand = nullptr;
    TLEditor* editor = nullptr;
    TLFeatureLayer* layer = nullptr;
    std::vector<TLPoint> points;
    TLPoint refStart;
    TLPoint refEnd;
    TLPoint crossStart;
    TLPoint crossEnd;
    TLPoint mousePoint;
    double turnAngle = 0.0;
    int pointCount = 0;
    int childStep = 0;
    ChildCmd childCmd = ccNone;
    TLSnapTool* snapTool = nullptr;
    TLPoint pickStart;
    TLPoint pickEnd;
    bool newPart = true;
    int partCount = 0;
    TLPoint partFirst;
    TLPoint lastPoint;
    TLPoint livePoint;
    bool guideOff = false;
};

}  // namespace TMObjects
