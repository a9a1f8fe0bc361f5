#pragma once

#include "tlbase/TLRefBase.h"

namespace TMObjects {

// One band of a raster, by its number from 1.
class TLRasterBand : public TLRefBase {
public:
    ~TLRasterBand() override;
    // Minimum, maximum, mean and standard deviation of the band's cells, no-data and NaN cells
    // left out. `approximate` 0 asks for exact figures over every cell; any other value lets the
    // store answer from a sample or from figures it keeps. False when the band has no valid cell
    // (the four values are then 0).
    virtual bool GetStatistics(double& minimum, double& maximum, double& mean, double& stdDev,
                               int approximate) = 0;
    // The band's number in its raster, from 1.
    virtual int GetBandIndex() const = 0;
};

}  // namespace TMObjects
