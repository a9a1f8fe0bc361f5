#include "digitize/TLCmdDigitizeRightDoubleLine.h"

#include "digitize/TLDoubleLineMachine.h"

namespace TMObjects {

TLCmdDigitizeRightDoubleLine::TLCmdDigitizeRightDoubleLine() = default;

TLCmdDigitizeRightDoubleLine::TLCmdDigitizeRightDoubleLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeRightDoubleLine::~TLCmdDigitizeRightDoubleLine() {
    delete mainBand;
    delete offsetBand;
    delete tempMainBand;
    delete tempOffsetBand;
    delete snapTool;
}

TLCmdDigitizeRightDoubleLine::Machine TLCmdDigitizeRightDoubleLine::machine() {
    return Machine(*this);
}

void TLCmdDigitizeRightDoubleLine::activate() {
    machine().activate();
}

void TLCmdDigitizeRightDoubleLine::deactivate() {
    machine().deactivate();
}

void TLCmdDigitizeRightDoubleLine::Reset() {
    machine().reset();
}

bool TLCmdDigitizeRightDoubleLine::OnMouseDown(TLMouseButton button, int x, int y) {
    return machine().mouseDown(button, x, y);
}

bool TLCmdDigitizeRightDoubleLine::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizeRightDoubleLine::OnMouseMove(TLMouseButton, int x, int y) {
    return machine().mouseMove(x, y);
}

bool TLCmdDigitizeRightDoubleLine::OnDblClick(TLMouseButton, int, int) {
    return machine().doubleClick();
}

bool TLCmdDigitizeRightDoubleLine::processChildCmd(TLString text) {
    return machine().typed(text);
}

bool TLCmdDigitizeRightDoubleLine::EndEntity(TLRect& rect) {
    return machine().endEntity(rect);
}

void TLCmdDigitizeRightDoubleLine::DrawTempRubberBand(double x, double y, TLRubberBand* bandA,
                                                      TLRubberBand* bandB) {
    machine().drawTempRubberBand(x, y, bandA, bandB);
}

void TLCmdDigitizeRightDoubleLine::jisuan(double x, double y, double ax, double ay, double bx,
                                          double by) {
    machine().jisuan(x, y, ax, ay, bx, by);
}

TLPoint TLCmdDigitizeRightDoubleLine::CaculateFouthyPoint(TLPoint a, TLPoint b) {
    return machine().caculateFouthyPoint(a, b);
}

}  // namespace TMObjects
