#include "tlbase/TLPlugin.h"

namespace TMObjects {

TLPlugin::TLPlugin(const TLPluginType& type, const TLString& category, const TLString& name,
                   const TLString& version, const TLString& description)
    : mType(type), mCategory(category), mName(name), mVersion(version), mDescription(description) {}

TLPlugin::~TLPlugin() = default;

void TLPlugin::UnloadPlugin() {}

bool TLPlugin::IsDll() {
    return true;
}

}  // namespace TMObjects
