#pragma once

#include <QDialog>
#include <functional>

#include "tlbase/TLRefBase.h"
#include "tlmap/TLLayer.h"

class QComboBox;

namespace TMObjects {
class TLTool;
class TLToolBuddy;
}  // namespace TMObjects

// The dialogs of the terrain tools keep a combo of the map's raster layers, refilled at every
// click so that the choice follows the map, and kept by layer id. They go with their tool: the
// tool's deactivate lets them go (`retire`), and the dialogs that end their tool when closed do
// so from `closeEvent`. Both may happen inside one of the dialog's own slots, so the dialog is
// never deleted there but once control is back in the event loop (it deletes itself on close
// too; Qt takes the two requests as one).
class TMRasterLayerDialog : public QDialog {
public:
    explicit TMRasterLayerDialog(QWidget* parent = nullptr);

    TMObjects::TLToolBuddy* buddy() const { return mBuddy; }
    void setTool(TMObjects::TLTool* tool) { mTool = tool; }
    TMObjects::TLTool* tool() const { return mTool; }
    // Forgets the tool, hides, and goes once the event loop runs again.
    void retire();

protected:
    // Whether closing the dialog ends its tool (through the tool's deactivate).
    void setEndsToolOnClose(bool ends) { mEndsToolOnClose = ends; }
    void closeEvent(QCloseEvent* event) override;
    // Ends the tool now, as closing does: its deactivate runs, once.
    void endTool();
    // Stores the buddy and refills the combo, keeping the item of the present id (item 0 when
    // it is gone). Nothing happens without a buddy, a view or layers. True when the current item
    // holds a layer id above 0; `layer` is then that layer (null when the map has none of that
    // id). The combo's signal is held off meanwhile.
    bool refillLayers(TMObjects::TLToolBuddy* buddy,
                      TMObjects::TLRefPtr<TMObjects::TLLayer>& layer);
    // The combo, made by the dialog's form, and what its index changes call.
    void setLayerCombo(QComboBox* combo, std::function<void(int)> onChange);
    QComboBox* layerCombo() const { return mCombo; }

    TMObjects::TLToolBuddy* mBuddy = nullptr;
    TMObjects::TLTool* mTool = nullptr;

private:
    void connectCombo();

    QComboBox* mCombo = nullptr;
    std::function<void(int)> mOnChange;
    QMetaObject::Connection mConnection;
    bool mEndsToolOnClose = true;
};
