#include "PlotSession.h"

#include "tlmap/TLEditor.h"

namespace TMObjects {

void PlotSession::SetUp() {
    SessionFixture::SetUp();
    symbols = addLayer("symbols", TLLayer::PolygonLayer);
    edit(symbols);
}

void PlotSession::start(const char* className) {
    pick(className);
    buddy->ClearEvents();
}

Ring PlotSession::committed() const {
    const Rings rings = onlyFeatureParts(symbols);
    EXPECT_EQ(rings.size(), 1u) << "rings";
    return rings.size() == 1 ? rings.front() : Ring();
}

int PlotSession::undoSteps() const {
    return map->editor()->UndoCount();
}

std::string PlotSession::undoLabel() const {
    return map->editor()->UndoLabel().toStdString();
}

}  // namespace TMObjects
