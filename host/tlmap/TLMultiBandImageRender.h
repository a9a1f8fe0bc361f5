#pragma once

#include "tlmap/TLImageRender.h"

namespace TMObjects {

// Three bands of the raster as red, green and blue; each channel may be switched off. Bands
// count from 1.
class TLMultiBandImageRender : public TLImageRender {
public:
    TLMultiBandImageRender(int red, int green, int blue);
    ~TLMultiBandImageRender() override;

    // "ImageRGBComposite".
    TLString GetType() const override;

    int getRedBand() const { return mRed; }
    int getGreenBand() const { return mGreen; }
    int getBlueBand() const { return mBlue; }
    void setBands(int red, int green, int blue);
    bool getUseRedBand() const { return mUseRed; }
    bool getUseGreenBand() const { return mUseGreen; }
    bool getUseBlueBand() const { return mUseBlue; }
    void setUseBands(bool red, bool green, bool blue);

private:
    int mRed, mGreen, mBlue;
    bool mUseRed = true, mUseGreen = true, mUseBlue = true;
};

}  // namespace TMObjects
