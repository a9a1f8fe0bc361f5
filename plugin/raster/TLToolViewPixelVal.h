#pragma once

#include <QPointer>

#include "TLPluginExport.h"
#include "tlmap/TLTool.h"

class TMViewPixelVal;

namespace TMObjects {

// Shows the value, row and column of the raster pixel under the click; read-only. A map without
// rasters never shows the dialog.
class TL_ACTIONEX_EXPORT TLToolViewPixelVal : public TLTool {
public:
    TLToolViewPixelVal();
    explicit TLToolViewPixelVal(TLToolBuddy* buddy);
    ~TLToolViewPixelVal() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;

    // Shows the dialog for the map point (x, y) when `show` and the map has a raster; a point at
    // exactly (0, 0) shows it without reading anything. Hides it otherwise.
    void DisplayViewPixelVal(double x, double y, bool show);

    TMViewPixelVal* dialog() const;

private:
    bool mHasRaster = false;
    // Guarded: the dialog is a child of the main window and may go with it.
    QPointer<TMViewPixelVal> mDialog;
};

}  // namespace TMObjects
