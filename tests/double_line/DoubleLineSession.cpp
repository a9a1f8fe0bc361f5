#include "DoubleLineSession.h"

#include "tlmap/TLEditor.h"

namespace TMObjects {

void DoubleLineSession::SetUp() {
    CommandSession::SetUp();
    map->SetSpatialReference(TLSpatialObjectFactory::LoadCoordinateSystem("EPSG:32631"));
    roads = addLayer("roads", TLLayer::LineLayer, "EPSG:32631");
    edit(roads);
}

void DoubleLineSession::start(const char* className) {
    pick(className);
    buddy->ClearEvents();
}

Paths DoubleLineSession::committedPair() const {
    const std::vector<int> ids = roads->GetDatasource()->GetIds();
    EXPECT_EQ(ids.size(), 2u) << "features";
    if (ids.size() != 2) return Paths();
    Paths pair;
    for (int id : ids) {
        const Paths parts = partsOf(roads, id);
        EXPECT_EQ(parts.size(), 1u) << "paths of feature " << id;
        pair.push_back(parts.empty() ? Path() : parts.front());
    }
    return pair;
}

int DoubleLineSession::undoSteps() const {
    return map->editor()->UndoCount();
}

std::string DoubleLineSession::lastLabel() const {
    return map->editor()->LastCommittedLabel().toStdString();
}

bool DoubleLineSession::nothingShown() const {
    for (const TLRubberBand* b : view->RubberBands())
        if (!pointsOf(b).empty()) return false;
    return true;
}

}  // namespace TMObjects
