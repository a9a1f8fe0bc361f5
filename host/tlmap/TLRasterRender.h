#pragma once

#include "tlbase/TLRefBase.h"

namespace TMObjects {

// How a raster layer is drawn. Image renders (`TLImageRender`) are the kinds the host draws and
// the style writer knows; other kinds may come from elsewhere and are then drawn by their owner.
class TLRasterRender : public TLRefBase {
public:
    ~TLRasterRender() override;
};

}  // namespace TMObjects
