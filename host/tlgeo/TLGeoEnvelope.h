#pragma once

#include "tlgeo/TLGeometry.h"

namespace TMObjects {

// An axis-aligned rectangle as a geometry. Relations and projection treat it as the polygon of
// its four corners.
class TLGeoEnvelope : public TLGeometry {
public:
    TLGeoEnvelope() = default;
    TLGeoEnvelope(double xmin, double ymin, double xmax, double ymax);
    explicit TLGeoEnvelope(TLRect rect);

    GeoType GetType() const override { return GeoEnvelope; }
    int GetDimension() const override { return 2; }
    bool IsEmpty() const override { return mEmpty; }
    double GetArea() const override;
    double GetLength() const override;
    TLRect GetBound() override;
    TLRefPtr<TLGeometry> Clone() override;
    // Two corner points: (xmin, ymin), (xmax, ymax).
    bool GetRawPoints(double** points, int& count) override;
    bool UpdateRawPoints(double* points) override;

    void PutCoord(double xmin, double ymin, double xmax, double ymax);
    void QueryCoords(double* xmin, double* ymin, double* xmax, double* ymax) const;

private:
    void normalise();
    double mXY[4] = {0, 0, 0, 0};  // xmin, ymin, xmax, ymax
    bool mEmpty = true;
};

}  // namespace TMObjects
