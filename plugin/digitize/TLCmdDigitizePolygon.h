#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "digitize/TLDigitizeClickRules.h"
#include "tlbase/TLPoint.h"
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

// Digitizes one polygon feature, possibly of several rings, with the input machine and the typed
// grammar of the line command. In polygon part mode 0 a right click on the ring's first vertex
// starts another ring. E, C, D or a double click close the ring and write the whole band as one
// feature in one "add feature" step; a shape of two vertices is dropped without a word.
class TL_ACTIONEX_EXPORT TLCmdDigitizePolygon : public TLTool {
public:
    // The sub-command under way. The numbers are this command's own.
    enum ChildCmd {
        ccNone = 0,
        ccVertical = 1,        // CZ
        ccInterval = 2,        // J
        ccExtend = 3,          // YS
        ccSpecifyLength = 4,   // LE
        ccMicroTraverse = 5,   // AS
        ccParallel = 6,        // PL
        ccParallelExtend = 7,  // PY
        ccChangeLength = 8,    // CL
        ccOffset = 9,          // OF
    };

    TLCmdDigitizePolygon();
    explicit TLCmdDigitizePolygon(TLToolBuddy* buddy);
    ~TLCmdDigitizePolygon() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseUp(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

    // The edit guard: an editor and a valid, editable layer.
    bool CanEdit() const;
    // Closes the ring and writes the main band as one polygon feature of the edit layer, then
    // clears the bands, tells the layer's observers and redraws. A shape of two vertices is
    // dropped instead. False on a layer that is no polygon layer, and when the band gives a
    // geometry that is no polygon.
    bool EndEntity();
    void Reset();
    // The filter that highlights the edit layer's features around a picked map point.
    TLQueryFilter SelectFeatureFilter(double x, double y);
    // The dashed guide square to the last segment (x1, y1)-(x2, y2) at its end, towards the
    // pointer (x3, y3).
    void setVerticalGuides(double x1, double y1, double x2, double y2, double x3, double y3);
    void Switch2CC(ChildCmd cmd);

private:
    friend class TLDigitizeMachine<TLCmdDigitizePolygon>;
    friend class TLDigitizeSteps<TLCmdDigitizePolygon>;
    friend class TLDigitizeValues<TLCmdDigitizePolygon>;
    using Machine = TLDigitizeMachine<TLCmdDigitizePolygon>;

    // What the shared input machine needs to know of this command.
    static constexpr TLLayer::LayerType kLayerType = TLLayer::PolygonLayer;
    static constexpr TLRubberBand::RubberBandType kShapeBand = TLRubberBand::PolygonBand;
    // A clicked vertex leaves the guide's end where the pointer put it, a CZ or PL pick stands
    // for two input steps, and neither the PY pick nor the J corner say anything of their own.
    static constexpr TLDigitizeClickRules kClickRules{false, true, 2, false, false, false};
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
    void rightClick(const TLPoint& p);
    void startRing(const TLPoint& p);
    void startPart(const TLPoint& p);
    void firstVertex(const TLPoint& p);
    void closeGuide();
    // Clears what a commit leaves behind: the point list and both drawing bands.
    void clearShape();

    void finish();
    void giveUp();
    void close();
    void closeWithInterval();

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
    TLPoint partFirst;
    TLPoint lastPoint;
    TLPoint livePoint;
    bool guideOff = false;
};

}  // namespace TMObjects
