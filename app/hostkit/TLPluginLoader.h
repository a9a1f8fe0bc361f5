#pragma once

#include <memory>
#include <string>

#include "tlbase/TLPlugin.h"

namespace TMObjects {

// Loads a plugin library the way the host does: reads the alias GetTMPlugIn from the library,
// calls the factory it names and runs InitPlugin. Unload empties the command pool and releases
// the plugin before the library goes, so that no tool outlives its code.
class TLPluginLoader {
public:
    TLPluginLoader();
    ~TLPluginLoader();
    TLPluginLoader(const TLPluginLoader&) = delete;
    TLPluginLoader& operator=(const TLPluginLoader&) = delete;

    // False with a reason in Error() when the library or its alias cannot be loaded.
    bool Load(const std::string& path);
    void Unload();
    TLPlugin* Plugin() const { return mPlugin.get(); }
    const std::string& Error() const { return mError; }

    // The plugin library next to the running program's build, or the installed one.
    static std::string DefaultPluginPath();

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
    TLRefPtr<TLPlugin> mPlugin;
    std::string mError;
};

}  // namespace TMObjects
