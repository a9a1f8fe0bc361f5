#include "LineSession.h"

namespace TMObjects {

void LineSession::SetUp() {
    SessionFixture::SetUp();
    roads = addLayer("roads", TLLayer::LineLayer);
    edit(roads);
    pick("TLCmdDigitizeLine");
}

}  // namespace TMObjects
