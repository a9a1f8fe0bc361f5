#include "edit/TLToolPartConnect.h"

namespace TMObjects {

TLToolPartConnect::TLToolPartConnect() = default;

TLToolPartConnect::TLToolPartConnect(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolPartConnect::~TLToolPartConnect() = default;

}  // namespace TMObjects
