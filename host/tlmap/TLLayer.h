#pragma once

#include "tlbase/TLRect.h"
#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"
#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

class TLMap;

class TLLayer : public TLRefBase {
public:
    enum LayerType {
        UnknownLayer = 0,
        PointLayer = 1,
        MultiPointLayer = 2,
        LineLayer = 3,
        PolygonLayer = 4,
        AnnotationLayer = 5,
        RasterLayer = 10,
    };

    TLLayer(const TLString& name, LayerType type, TLRefPtr<TLCoordinateSystem> reference);
    ~TLLayer() override;

    virtual int IsValid() const;
    virtual TLRect GetExtent() const = 0;
    // What the layer holds, for code that handles features and rasters differently.
    virtual bool IsFeatureLayer() const { return false; }
    virtual bool IsRasterLayer() const { return false; }

    bool IsEditable() const { return mEditable; }
    void SetEditable(bool editable) { mEditable = editable; }
    bool Selectable() const { return mSelectable; }
    void SetSelectable(bool selectable) { mSelectable = selectable; }
    bool IsVisible() const { return mVisible; }
    void SetVisible(bool visible) { mVisible = visible; }
    int GetLayerId() const { return mId; }
    TLString GetLayerName() const { return mName; }
    void SetLayerName(const TLString& name) { mName = name; }
    LayerType GetLayerType() const { return mType; }
    TLRefPtr<TLCoordinateSystem> GetSpatialReference() const { return mReference; }
    void SetSpatialReference(TLRefPtr<TLCoordinateSystem> reference) { mReference = reference; }
    bool GetVisibleInAllScale() const { return mVisibleMin <= 0 && mVisibleMax <= 0; }
    double GetVisibleScaleMin() const { return mVisibleMin; }
    double GetVisibleScaleMax() const { return mVisibleMax; }
    void SetVisibleScales(double minimum, double maximum);
    double GetAlpha() const { return mAlpha; }
    void SetAlpha(double alpha) { mAlpha = alpha; }

    // The map the layer was inserted into; null before that.
    TLMap* GetMap() const { return mMap; }
    void SetMap(TLMap* map) { mMap = map; }

private:
    static int sNextId;
    int mId;
    TLString mName;
    LayerType mType;
    TLRefPtr<TLCoordinateSystem> mReference;
    bool mEditable = false;
    bool mSelectable = true;
    bool mVisible = true;
    double mVisibleMin = 0.0;
    double mVisibleMax = 0.0;
    double mAlpha = 1.0;
    TLMap* mMap = nullptr;
};

}  // namespace TMObjects
