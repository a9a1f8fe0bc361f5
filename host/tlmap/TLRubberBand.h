#pragma once

#include <vector>

#include "tlbase/TLColor.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"
#include "tlsymbol/TLPen.h"

namespace TMObjects {

class TLView;

// Temporary geometry drawn over the view, in map coordinates, in one or more parts. Owned by a
// tool and deleted directly.
class TLRubberBand : public TLRefBase {
public:
    enum RubberBandType { PointBand = 0, LineBand = 1, PolygonBand = 3, ImageBand = 5 };

    TLRubberBand(TLView* view, RubberBandType type);
    ~TLRubberBand() override;

    void Reset(RubberBandType type);
    void Clear();
    void Update();
    // -1 is the last part; an index equal to GetGeometryCount() opens a new part. An index
    // beyond that is out of range.
    void AddPoint(const TLPoint& p, int geometryIndex);
    TLPoint GetPoint(int pointIndex, int geometryIndex) const;
    TLPoint RemoveLastPoint(int geometryIndex);
    int GetGeometryCount() const { return int(mParts.size()); }
    int GetPointCount(int geometryIndex) const;
    int GetCount() const;
    // Closes the part (each part when geometryIndex is -2) by repeating its first point, unless
    // it is closed already; a missing part is left alone. `update` repaints afterwards.
    void ClosePoints(bool update, int geometryIndex);
    // Type 0: a point (the last one); 1: a polyline of all parts with two or more points;
    // 3: a polygon of all parts with three or more points, each ring closed. Empty when no part
    // qualifies.
    TLRefPtr<TLGeometry> AsGeometry();
    void SetPenStyle(TLPen::PenStyle style, const double& width, const TLColor& colour);
    void SetBrushStyle(TLBrush::BrushStyle style, const TLColor& colour);
    void RotateCoord(double cx, double cy, double angle, bool radians);
    void SetImage(TLImage* image) { mImage = image; }

    RubberBandType GetType() const { return mType; }
    const TLPen& Pen() const { return mPen; }
    const TLBrush& Brush() const { return mBrush; }
    const std::vector<std::vector<TLPoint>>& Parts() const { return mParts; }
    int UpdateCount() const { return mUpdates; }
    TLView* View() const { return mView; }
    // Called by a view that goes away before its bands, so that they no longer reach it.
    void DetachView() { mView = nullptr; }

private:
    int partIndex(int geometryIndex) const;  // throws std::out_of_range
    TLView* mView;
    RubberBandType mType;
    std::vector<std::vector<TLPoint>> mParts;
    TLPen mPen;
    TLBrush mBrush;
    TLImage* mImage = nullptr;
    int mUpdates = 0;
};

}  // namespace TMObjects
