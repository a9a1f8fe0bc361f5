#pragma once

#include "TLPluginExport.h"
#include "tlbase/TLPlugin.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

// The plugin object the host gets from the factory. InitPlugin hands every tool of this library
// to the host's command pool; the plugin keeps no list of them, the pool owns them.
class TL_ACTIONEX_EXPORT TLPluginActionEX : public TLPlugin {
public:
    TLPluginActionEX();
    ~TLPluginActionEX() override;
    void InitPlugin() override;

protected:
    // Holds the tool only for the length of the call, so that afterwards the pool's reference
    // is the only one.
    void insertToPool(TLRefPtr<TLTool> tool);
};

}  // namespace TMObjects
