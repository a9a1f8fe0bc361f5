#include "edit/TLToolCopyBlock.h"

namespace TMObjects {

TLToolCopyBlock::TLToolCopyBlock() = default;

TLToolCopyBlock::TLToolCopyBlock(TLToolBuddy* buddy) : TLTool(buddy) {}

TLToolCopyBlock::~TLToolCopyBlock() = default;

}  // namespace TMObjects
