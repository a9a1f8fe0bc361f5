#include "identify/TLToolIdentifyRoute.h"

namespace TMObjects {

TLToolIdentifyRoute::TLToolIdentifyRoute() = default;

TLToolIdentifyRoute::TLToolIdentifyRoute(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolIdentifyRoute::~TLToolIdentifyRoute() = default;

}  // namespace TMObjects
