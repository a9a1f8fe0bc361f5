#pragma once

#include "tlgeo/TLGeometry.h"

namespace TMObjects {

// An axis-aligned rectangle as a geometry. Relations and projection treat it as the polygon of
// its four corners. A rectangle of zero width or height is not empty.
class TLGeoEnvelope : public TLGeometry {
public:
    TLGeoEnvelope() = default;
    TLGeoEnvelope(double xmin, double ymin, double xmax, double ymax);
    // Empty when the rectangle is.
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
    // Corners given in any order are put back in order.
    bool UpdateRawPoints(double* points) override;

    bool open(TLFileFunc& file) override;
    bool save(TLFileFunc& file) const override;

    // Corners given in any order are put in order.
    void PutCoord(double xmin, double ymin, double xmax, double ymax);
    void QueryCoords(double* xmin, double* ymin, double* xmax, double* ymax) const;
    void SetEmpty() { mEmpty = true; }

private:
    void normalise();
    double mXY[4] = {0, 0, 0, 0};  // xmin, ymin, xmax, ymax
    bool mEmpty = true;
};

}  // namespace TMObjects
