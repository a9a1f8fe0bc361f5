#pragma once

#include "TLToolText.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLRubberBand.h"
#include "tlmap/TLToolBuddy.h"

namespace TMObjects {

// The small steps every input path of the digitizing commands shares: a vertex joins the shape,
// a sub-command starts or ends, the guide is reset or redrawn, a text goes to the command window.
// The commands keep their state in plain fields of their own (see TLDigitizeMachine for what a
// `Tool` provides); these steps only work on them.
//
// In the comments A is the second last vertex and B the last.
template <class Tool>
class TLDigitizeSteps {
public:
    static constexpr const char* kDistancePrompt = "input distance:";
    static constexpr const char* kDirectionPrompt =
        "Micro wire - keyboard input angle (K) / > mouse click on the specified direction:";
    static constexpr const char* kBadText =
        "Point coordinate or command input error, please re-enter!";

protected:
    explicit TLDigitizeSteps(Tool& tool) : t(tool) {}

    // "Add P": a clicked, typed or constructed vertex joins the current part.
    void addVertex(const TLPoint& p) {
        t.points.push_back(p);
        t.mainBand->AddPoint(p, -1);
        t.lastPoint = p;
        t.livePoint = p;
        t.mainBand->Update();
        ++t.pointCount;
    }

    // A vertex that came from a click. Whether it also ends the guide is the command's rule.
    void addClicked(const TLPoint& p) {
        const TLPoint live = t.livePoint;
        addVertex(p);
        if (!Tool::kClickRules.clickEndsGuide) t.livePoint = live;
    }

    void clearChildState() {
        t.childCmd = Tool::ccNone;
        t.childStep = 0;
    }

    const TLPoint& b() const { return t.points.back(); }
    // Throws std::out_of_range with fewer than two vertices: CL on a one-point line ends there.
    const TLPoint& a() const { return t.points.at(t.points.size() - 2); }

    void prompt(const char* text) { t.mBuddy->SetPrompt(toolText(text)); }
    void message(const char* text) { t.mBuddy->AppendMessage(toolText(text)); }

    // "End": the count prompt, then plain input again.
    void end() {
        t.countPrompt();
        clearChildState();
    }

    void start(typename Tool::ChildCmd cmd, const char* text, bool holdGuide) {
        t.childCmd = cmd;
        t.childStep = 1;
        prompt(text);
        if (holdGuide) t.guideOff = true;
    }

    void extendGuide(const TLPoint& q) {
        t.guideBand->AddPoint(q, 0);
        t.livePoint = q;
        t.guideBand->Update();
    }

    void resetGuide(TLRubberBand::RubberBandType type) {
        t.guideBand->Reset(type);
        t.guideBand->Update();
    }

    // The guide as a segment from `from` to where it ended last.
    void guideFrom(const TLPoint& from) {
        t.guideBand->Reset(Tool::kShapeBand);
        t.guideBand->AddPoint(from, 0);
        t.guideBand->AddPoint(t.livePoint, 0);
        t.guideBand->Update();
    }

    Tool& t;
};

}  // namespace TMObjects
