#include "tlmap/TLCMDPool.h"

#include "tlmap/TLTool.h"

namespace TMObjects {

TLCMDPool* TLCMDPool::GetInstance() {
    // Never destroyed: at exit the tools' code may already be unloaded, so the host empties the
    // pool with Clear() while the plugin library is still loaded.
    static TLCMDPool* pool = new TLCMDPool;
    return pool;
}

bool TLCMDPool::AddTool(TLTool* tool) {
    if (!tool) return false;
    mTools.emplace_back(tool);
    return true;
}

TLTool* TLCMDPool::GetTool(int index) const {
    return index >= 0 && index < GetToolCount() ? mTools[std::size_t(index)].get() : nullptr;
}

void TLCMDPool::Clear() {
    mTools.clear();
}

}  // namespace TMObjects
