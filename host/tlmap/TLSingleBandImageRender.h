#pragma once

#include "tlmap/TLImageRender.h"

namespace TMObjects {

// One band of the raster, drawn through its render info: a stretch ("ImageStretch") or classes
// ("ImageClass"). The render's type is its info's; without an info it has none (empty).
class TLSingleBandImageRender : public TLImageRender {
public:
    explicit TLSingleBandImageRender(int band = 1) : mBand(band) {}
    ~TLSingleBandImageRender() override;

    TLString GetType() const override;
    int getBand() const { return mBand; }
    void setBand(int band) { mBand = band; }

private:
    int mBand;
};

}  // namespace TMObjects
