#include "edit/TLToolEdgeMatching.h"

namespace TMObjects {

TLToolEdgeMatching::TLToolEdgeMatching() = default;

TLToolEdgeMatching::TLToolEdgeMatching(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolEdgeMatching::~TLToolEdgeMatching() = default;

}  // namespace TMObjects
