#pragma once

#include "digitize/TLDigitizeConstruction.h"
#include "digitize/TLDigitizeSteps.h"
#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLFeatureLayer.h"

namespace TMObjects {

// The typed values the sub-commands of the digitizing commands wait for: offsets, lengths,
// distances, points and the micro-traverse angle, each with what a bad value says.
template <class Tool>
class TLDigitizeValues : public TLDigitizeSteps<Tool> {
public:
    // A typed line while a sub-command waits. No key is recognised here: E, U and the others are
    // only bad values. A bad value keeps the sub-command waiting.
    void value(const TLString& text) {
        if (t.childStep == 1) {
            firstStepValue(text);
        } else if (t.childCmd == Tool::ccMicroTraverse && t.childStep == 2) {
            traverseAngle(text);
        } else if (t.childCmd == Tool::ccMicroTraverse && t.childStep == 3) {
            traverseDistance(text);
        }
    }

protected:
    using Steps = TLDigitizeSteps<Tool>;
    using Steps::a;
    using Steps::addVertex;
    using Steps::b;
    using Steps::end;
    using Steps::guideFrom;
    using Steps::kBadText;
    using Steps::kDirectionPrompt;
    using Steps::kDistancePrompt;
    using Steps::message;
    using Steps::prompt;
    using Steps::resetGuide;
    using Steps::t;

    explicit TLDigitizeValues(Tool& tool) : Steps(tool) {}

private:
    static bool readNumber(const TLString& text, double& number) {
        if (!TLDrawCommonTool::CheckStrIsDouble(text)) return false;
        number = text.ToDouble();
        return true;
    }

    void firstStepValue(const TLString& text) {
        switch (t.childCmd) {
            case Tool::ccOffset:
                typeOffset(text);
                break;
            case Tool::ccChangeLength:
                typeLength(text);
                break;
            case Tool::ccVertical:
                typeVertical(text);
                break;
            case Tool::ccInterval:
                typeInterval(text);
                break;
            case Tool::ccExtend:
                typeExtend(text);
                break;
            case Tool::ccSpecifyLength:
                typeSpecifyLength(text);
                break;
            case Tool::ccMicroTraverse:
                typeTraverseKey(text);
                break;
            case Tool::ccParallel:
                typeParallel(text);
                break;
            default:  // PY takes picks only
                break;
        }
    }

    void refuseDistance() {
        message("The input distance is not legal!");
        prompt(kDistancePrompt);
    }

    // OF: dx,dy from the last vertex.
    void typeOffset(const TLString& text) {
        double dx = 0, dy = 0;
        if (!TLDrawCommonTool::ReadInputPoint(text, dx, dy)) {
            message("Point coordinate or command input error, please re-enter!");
            prompt("input offset coordinate:");
            return;
        }
        if (t.points.empty()) return;
        addVertex(TLPoint(b().x + dx, b().y + dy));
        resetGuide(Tool::kShapeBand);
        t.guideOff = false;
        t.childStep = 0;
        t.countPrompt();
        t.Switch2CC(Tool::ccNone);
    }

    // CL: the last vertex moves along its segment so that the segment gets the typed length.
    // The vertex is replaced, so pointCount stays.
    void typeLength(const TLString& text) {
        double length = 0;
        if (!readNumber(text, length)) return;
        TLPoint moved;
        if (!TLDrawCommonTool::ChangeLength(a(), b(), moved, length)) return;
        t.points.back() = moved;
        t.mainBand->RemoveLastPoint(0);
        t.mainBand->AddPoint(moved, -1);
        t.mainBand->Update();
        guideFrom(moved);
        t.lastPoint = moved;
        t.guideOff = false;
        // CL is offered from the second input step on; below that it sets no prompt.
        if (t.pointCount >= 2) t.countPrompt();
        t.Switch2CC(Tool::ccNone);
    }

    // CZ: the vertex square off the reference line, the typed distance away from B towards it.
    void typeVertical(const TLString& text) {
        double distance = 0;
        if (!readNumber(text, distance)) {
            // CZ says it the other way round: the prompt first, then the history line.
            prompt(kDistancePrompt);
            message("The input distance is not legal!");
            return;
        }
        TLPoint foot, q;
        if (!t.points.empty() && !TLDigitizeConstruction::AllZero(t.refStart, t.refEnd) &&
            TLDrawCommonTool::GetNotLinePlumb(t.refStart.x, t.refStart.y, t.refEnd.x, t.refEnd.y,
                                              b().x, b().y, foot.x, foot.y) &&
            TLDrawCommonTool::CalculateDistancePoint(b().x, b().y, foot.x, foot.y, distance, q.x,
                                                     q.y)) {
            t.mainBand->AddPoint(q, -1);
            t.lastPoint = q;
            t.livePoint = q;
            t.points.push_back(q);
            ++t.pointCount;
        }
        t.mainBand->Update();
        t.layer->ClearSelect(false);
        t.childStep = 0;
        end();
    }

    // J typed: the corner if one is needed, then the typed point.
    void typeInterval(const TLString& text) {
        TLPoint p;
        if (!TLDrawCommonTool::ReadInputPoint(text, p.x, p.y)) {
            message("input point format error!");
            return;
        }
        TLPoint corner;
        if (TLDrawCommonTool::CalculateSpacePoint(t.mainBand, t.points, p.x, p.y, corner.x,
                                                  corner.y))
            addVertex(corner);
        addVertex(p);
        resetGuide(Tool::kShapeBand);
        t.guideOff = false;
        end();
    }

    // YS typed: the last segment goes on by the distance.
    void typeExtend(const TLString& text) {
        double distance = 0;
        if (!readNumber(text, distance)) {
            refuseDistance();
            return;
        }
        if (t.points.size() >= 2) {
            TLPoint from = a(), to = b(), q;
            if (TLDrawCommonTool::CalculateExtendPoint(&from, &to, distance, q.x, q.y)) {
                addVertex(q);
                resetGuide(Tool::kShapeBand);
            }
        }
        end();
    }

    // LE typed: the distance runs from the last vertex along the guide as it stood when LE was
    // typed, towards where the pointer was.
    void typeSpecifyLength(const TLString& text) {
        double distance = 0;
        if (!readNumber(text, distance)) {
            refuseDistance();
            return;
        }
        TLPoint q;
        if (!t.points.empty() &&
            TLDrawCommonTool::CalculateDistancePoint(t.lastPoint.x, t.lastPoint.y, t.livePoint.x,
                                                     t.livePoint.y, distance, q.x, q.y))
            addVertex(q);
        t.childStep = 0;
        t.guideOff = false;
        end();
    }

    // AS, first step: the letter k asks for the angle by keyboard.
    void typeTraverseKey(const TLString& text) {
        if (text.trim().CompareNoCase("k") != 0) {
            message("Point coordinate or command input error, please re-enter!");
            prompt(kDirectionPrompt);
            return;
        }
        prompt("Please enter the angle (degree):");
        t.childStep = 2;
    }

    void traverseAngle(const TLString& text) {
        double angle = 0;
        if (!readNumber(text, angle)) {
            message("Incorrect input angle!");
            prompt("Please enter the angle (degree):");
            return;
        }
        t.turnAngle = angle;
        t.childStep = 3;
        prompt(kDistancePrompt);
    }

    void traverseDistance(const TLString& text) {
        double distance = 0;
        if (!readNumber(text, distance)) {
            refuseDistance();
            return;
        }
        TLPoint q;
        if (t.points.size() >= 2 &&
            TLDrawCommonTool::CalculateMicroPoint(a().x, a().y, b().x, b().y, t.turnAngle, distance,
                                                  q.x, q.y)) {
            t.mainBand->AddPoint(q, -1);
            t.mainBand->Update();
            t.lastPoint = q;
            t.livePoint = q;
            guideFrom(q);
            t.points.push_back(q);
            ++t.pointCount;
            t.guideOff = false;
        }
        t.countPrompt();
        t.Switch2CC(Tool::ccNone);
    }

    // PL typed: B moved by the distance along the reference; the sign picks the direction. A
    // distance of 0 would double B, so it is not taken and PL still waits.
    void typeParallel(const TLString& text) {
        double distance = 0;
        if (!readNumber(text, distance)) {
            refuseDistance();
            return;
        }
        if (distance == 0) return;
        if (!t.points.empty() && !TLDigitizeConstruction::AllZero(t.refStart, t.refEnd))
            addVertex(TLDigitizeConstruction::ParallelOffset(b(), t.refStart, t.refEnd, distance));
        t.childStep = 0;
        end();
    }
};

}  // namespace TMObjects
