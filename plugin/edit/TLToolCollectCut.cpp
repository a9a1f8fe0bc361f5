#include "edit/TLToolCollectCut.h"

namespace TMObjects {

TLToolCollectCut::TLToolCollectCut() = default;

TLToolCollectCut::TLToolCollectCut(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolCollectCut::~TLToolCollectCut() = default;

}  // namespace TMObjects
