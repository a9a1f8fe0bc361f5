#pragma once

#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class TLGeoPoint : public TLGeometry {
public:
    TLGeoPoint() = default;
    TLGeoPoint(double x, double y) : mXY{x, y}, mEmpty(false) {}

    GeoType GetType() const override { return GeoPoint; }
    int GetDimension() const override { return 0; }
    bool IsEmpty() const override { return mEmpty; }
    // The rectangle of zero size at the point; an empty rectangle for an empty point.
    TLRect GetBound() override;
    TLRefPtr<TLGeometry> Clone() override;
    // The point's own (x, y) pair, count 1; writing it also makes an empty point non-empty
    // through UpdateRawPoints.
    bool GetRawPoints(double** points, int& count) override;
    bool UpdateRawPoints(double* points) override;
    virtual bool get_HasZ(bool* hasZ);
    // Turning Z off resets it to 0.
    virtual bool put_HasZ(bool hasZ);
    // Sets Z and turns Z on.
    virtual bool Put_Z(double z);

    bool open(TLFileFunc& file) override;
    bool save(TLFileFunc& file) const override;

    void PutCoords(double x, double y);
    void QueryCoords(double* x, double* y) const;
    void QueryCoordsXYZ(double* x, double* y, double* z) const;
    double GetX() const { return mXY[0]; }
    double GetY() const { return mXY[1]; }
    double GetZ() const { return mZ; }
    bool HasZ() const { return mHasZ; }
    // Empties the point.
    void SetEmpty();

private:
    double mXY[2] = {0.0, 0.0};  // one array, so that GetRawPoints can hand it out
    double mZ = 0.0;
    bool mEmpty = true;
    bool mHasZ = false;
};

}  // namespace TMObjects
