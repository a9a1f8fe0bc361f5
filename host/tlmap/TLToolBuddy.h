#pragma once

#include <cstdint>

#include "tlbase/TLString.h"

namespace TMObjects {

class TLMapView;
class TLTool;

// The host's interface for one view, given to a tool by Init. The virtual operations keep their
// order: tools are compiled against this table.
class TLToolBuddy {
public:
    virtual ~TLToolBuddy() = default;
    virtual TLMapView* GetMapView() = 0;
    virtual bool HasActiveMap() = 0;
    virtual void NotifyEdited() = 0;
    virtual void SetToolEnabled(int enabled) = 0;
    // A Qt cursor shape: 2 cross, 13 pointing hand.
    virtual void SetCursor(int shape) = 0;
    virtual void UnregisterTool(TLTool* tool, bool flag) = 0;
    virtual void SetPrompt(TLString text) = 0;
    virtual void AppendMessage(TLString text) = 0;
    virtual void RegisterTool(TLString name, TLTool* tool, bool flag) = 0;
    // Qt keyboard modifier flags: 0x2000000 Shift, 0x4000000 Control.
    virtual int KeyboardModifiers() = 0;
    virtual void ShowMessage(TLString text) = 0;
    // A window id for QWidget::find; 0 when there is no main window.
    virtual std::uintptr_t MainWindowId() = 0;
    virtual void RefreshLayerList() = 0;
    virtual void SetScratchPolygonLayerId(int id) = 0;
    virtual int ScratchPolygonLayerId() = 0;
    virtual void SetScratchPointLayerId(int id) = 0;
    virtual int ScratchPointLayerId() = 0;
    virtual void SetPolygonPartMode(int mode) = 0;
    virtual int PolygonPartMode() = 0;
    virtual void SetLinePartMode(int mode) = 0;
    virtual int LinePartMode() = 0;
};

}  // namespace TMObjects
