#pragma once

#include <map>

#include "tlmap/TLFeatureLayer.h"
#include "tlsde/TLAnnotation.h"

namespace TMObjects {

// A layer of annotation (layer type 5): each feature is a piece of map text whose record lives in
// the fields of its row (see TLAnnoMgrTool for the two families of fields) and whose geometry is
// the text's box, a line across it or the anchor point, as GetAnnoGeoType says.
//
// The reference scale is the scale (1 : n) at which the text has its stored size; it is never 0
// nor negative: a layer made or set with such a scale keeps kDefaultReferenceScale.
class TLAnnotationLayer : public TLFeatureLayer {
public:
    // What each feature's geometry is.
    enum AnnoGeoType { AnnoGeoPoint = 2, AnnoGeoLine = 11, AnnoGeoPolygon = 13 };
    static constexpr double kDefaultReferenceScale = 1000.0;

    TLAnnotationLayer(const TLString& name, TLRefPtr<TLFeatureTable> table,
                      TLRefPtr<TLCoordinateSystem> reference, int fieldKind = 0,
                      double referenceScale = kDefaultReferenceScale, int geoType = AnnoGeoPolygon);
    ~TLAnnotationLayer() override;

    // A new layer in memory with the fields of its kind (TLAnnoMgrTool::AddAnnotationFields) and
    // the given extra fields; editable.
    static TLAnnotationLayer* CreateMemoryLayer(const TLString& name, const TLFields& extra,
                                                TLRefPtr<TLCoordinateSystem> reference,
                                                int fieldKind, double referenceScale, int geoType);

    double GetReferenceScale() const { return mReferenceScale; }
    // False, and the scale kept, for a scale that is not a finite number above 0.
    bool SetReferenceScale(double scale);
    int GetAnnoGeoType() const { return mGeoType; }
    void SetAnnoGeoType(int type) { mGeoType = type; }

    // The record of the feature, read from its fields on first need and kept; null when the
    // layer has no such feature.
    TLAnnotation* GetAnnoTextElement(int id);
    // The record as it is to be drawn: read afresh when it is dirty or not kept yet.
    TLAnnotation* GetFreshTextElement(int id);
    void SetAnnotationDirty(int id, bool dirty);
    bool IsAnnotationDirty(int id) const;

    // Which family of fields the rows use: 1 Rv, 2 Tm, anything else both.
    int annoFieldKind = 0;

    // The record read afresh from the feature's fields (nothing kept); false without the feature.
    bool ReadTextElement(int id, TLAnnotation& record) const;

private:
    double mReferenceScale = kDefaultReferenceScale;
    int mGeoType = AnnoGeoPolygon;
    std::map<int, TLAnnotation> mRecords;
};

}  // namespace TMObjects
