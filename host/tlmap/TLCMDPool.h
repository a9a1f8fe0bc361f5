#pragma once

#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"

namespace TMObjects {

class TLTool;

// The process-wide pool of tools, in the order they were added.
class TLCMDPool {
public:
    static TLCMDPool* GetInstance();

    // Stores the tool and takes its own reference; false for a null tool.
    bool AddTool(TLTool* tool);
    int GetToolCount() const { return int(mTools.size()); }
    TLTool* GetTool(int index) const;
    // Releases every tool; the host calls it before it unloads the libraries the tools live in.
    void Clear();

private:
    TLCMDPool() = default;
    std::vector<TLRefPtr<TLTool>> mTools;
};

}  // namespace TMObjects
