#pragma once

#include "tlbase/TLString.h"
#include "tlmap/TLImageRenderInfo.h"
#include "tlmap/TLRasterRender.h"

namespace TMObjects {

// A render that draws the raster's cells as an image: several bands as red, green and blue
// (`TLMultiBandImageRender`), or one band through a stretch or classes
// (`TLSingleBandImageRender`). The type names the kind: "ImageRGBComposite", "ImageStretch",
// "ImageClass".
class TLImageRender : public TLRasterRender {
public:
    ~TLImageRender() override;
    virtual TLString GetType() const = 0;

    TLRefPtr<TLImageRenderInfo> getRenderInfo() const { return mInfo; }
    void setRenderInfo(TLRefPtr<TLImageRenderInfo> info) { mInfo = info; }

private:
    TLRefPtr<TLImageRenderInfo> mInfo;
};

}  // namespace TMObjects
