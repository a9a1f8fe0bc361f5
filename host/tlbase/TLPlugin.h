#pragma once

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"

namespace TMObjects {

using TLPluginType = int;

// Base of every plugin the host loads. The host calls InitPlugin once after the factory and
// UnloadPlugin before it lets the library go.
class TLPlugin : public TLRefBase {
public:
    TLPlugin(const TLPluginType& type, const TLString& category, const TLString& name,
             const TLString& version, const TLString& description);
    ~TLPlugin() override;
    virtual void InitPlugin() = 0;
    virtual void UnloadPlugin();
    virtual bool IsDll();

    TLPluginType GetType() const { return mType; }
    const TLString& GetCategory() const { return mCategory; }
    const TLString& GetName() const { return mName; }
    const TLString& GetVersion() const { return mVersion; }
    const TLString& GetDescription() const { return mDescription; }

private:
    TLPluginType mType;
    TLString mCategory;
    TLString mName;
    TLString mVersion;
    TLString mDescription;
};

}  // namespace TMObjects
