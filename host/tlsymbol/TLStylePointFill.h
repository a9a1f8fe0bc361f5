#pragma once

#include "tlsymbol/TLStyleFill.h"

namespace TMObjects {

// An area covered with point symbols on a grid (fill type 0), on a staggered grid (1) or in
// random places (2), the symbols the given separations apart.
class TLStylePointFill : public TLStyleFill {
public:
    enum FillType { GridFill = 0, StaggeredFill = 1, RandomFill = 2 };

    TLStylePointFill() = default;
    ~TLStylePointFill() override;

    int GetTypeID() const override { return PointFillType; }
    double GetSeperateX() const { return mSeperateX; }
    double GetSeperateY() const { return mSeperateY; }
    int GetFillType() const { return mFillType; }
    TLRefPtr<TLStyle> GetDecoratePointStyle() const { return mDecorate; }
    void SetSeperateX(double x) { mSeperateX = x; }
    void SetSeperateY(double y) { mSeperateY = y; }
    void SetFillType(int type) { mFillType = type; }
    void SetDecoratePointStyle(TLRefPtr<TLStyle> style) { mDecorate = style; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    double mSeperateX = 5.0;
    double mSeperateY = 5.0;
    int mFillType = GridFill;
    TLRefPtr<TLStyle> mDecorate;
};

}  // namespace TMObjects
