#include "edit/TLToolExtension.h"

namespace TMObjects {

TLToolExtension::TLToolExtension() = default;

TLToolExtension::TLToolExtension(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolExtension::~TLToolExtension() = default;

}  // namespace TMObjects
