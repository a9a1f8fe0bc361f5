#include "digitize/TLCmdDigitizeLeftDoubleLine.h"

#include "digitize/TLDoubleLineMachine.h"

namespace TMObjects {

TLCmdDigitizeLeftDoubleLine::TLCmdDigitizeLeftDoubleLine() = default;

TLCmdDigitizeLeftDoubleLine::TLCmdDigitizeLeftDoubleLine(TLToolBuddy* buddy) : TLTool(buddy) {}

TLCmdDigitizeLeftDoubleLine::~TLCmdDigitizeLeftDoubleLine() {
    delete mainBand;
    delete offsetBand;
    delete tempMainBand;
    delete tempOffsetBand;
    delete snapTool;
}

TLCmdDigitizeLeftDoubleLine::Machine TLCmdDigitizeLeftDoubleLine::machine() {
    return Machine(*this);
}

void TLCmdDigitizeLeftDoubleLine::activate() {
    machine().activate();
}

void TLCmdDigitizeLeftDoubleLine::deactivate() {
    machine().deactivate();
}

void TLCmdDigitizeLeftDoubleLine::Reset() {
    machine().reset();
}

bool TLCmdDigitizeLeftDoubleLine::OnMouseDown(TLMouseButton button, int x, int y) {
    return machine().mouseDown(button, x, y);
}

bool TLCmdDigitizeLeftDoubleLine::OnMouseUp(TLMouseButton, int, int) {
    return true;
}

bool TLCmdDigitizeLeftDoubleLine::OnMouseMove(TLMouseButton, int x, int y) {
    return machine().mouseMove(x, y);
}

bool TLCmdDigitizeLeftDoubleLine::OnDblClick(TLMouseButton, int, int) {
    return machine().doubleClick();
}

bool TLCmdDigitizeLeftDoubleLine::processChildCmd(TLString text) {
    return machine().typed(text);
}

bool TLCmdDigitizeLeftDoubleLine::EndEntity(TLRect& rect) {
    return machine().endEntity(rect);
}

void TLCmdDigitizeLeftDoubleLine::DrawTempRubberBand(double x, double y, TLRubberBand* bandA,
                                                     TLRubberBand* bandB) {
    machine().drawTempRubberBand(x, y, bandA, bandB);
}

void TLCmdDigitizeLeftDoubleLine::jisuan(double x, double y, double ax, double ay, double bx,
                                         double by) {
    machine().jisuan(x, y, ax, ay, bx, by);
}

TLPoint TLCmdDigitizeLeftDoubleLine::CaculateFouthyPoint(TLPoint a, TLPoint b) {
    return machine().caculateFouthyPoint(a, b);
}

}  // namespace TMObjects
