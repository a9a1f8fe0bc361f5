#include "ShapeSession.h"

#include "tlmap/TLEditor.h"

namespace TMObjects {

void ShapeSession::SetUp() {
    SessionFixture::SetUp();
    parcels = addLayer("parcels", TLLayer::PolygonLayer);
    edit(parcels);
}

void ShapeSession::start(const char* className) {
    pick(className);
    buddy->ClearEvents();
}

Ring ShapeSession::ringOf(TLFeatureLayer* layer, int id) const {
    const Rings rings = partsOf(layer, id);
    EXPECT_EQ(rings.size(), 1u) << "rings of feature " << id;
    return rings.empty() ? Ring() : rings.front();
}

Ring ShapeSession::committed() const {
    const std::vector<int> ids = parcels->GetDatasource()->GetIds();
    EXPECT_EQ(ids.size(), 1u) << "features";
    return ids.size() == 1 ? ringOf(parcels, ids.front()) : Ring();
}

int ShapeSession::undoSteps() const {
    return map->editor()->UndoCount();
}

}  // namespace TMObjects
