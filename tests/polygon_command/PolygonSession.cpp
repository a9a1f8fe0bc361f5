#include "PolygonSession.h"

namespace TMObjects {

void PolygonSession::SetUp() {
    SessionFixture::SetUp();
    parcels = addLayer("parcels", TLLayer::PolygonLayer);
    edit(parcels);
    pick("TLCmdDigitizePolygon");
}

TLRefPtr<TLGeometry> PolygonSession::committedGeometry() const {
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    EXPECT_EQ(ids.size(), 1u) << "features in parcels";
    if (ids.size() != 1) return {};
    TLRefPtr<TLFeature> feature = parcels->GetFeature(ids.front());
    return feature ? feature->GetGeometry() : TLRefPtr<TLGeometry>();
}

}  // namespace TMObjects
