#include "hostkit/TLPluginLoader.h"

#include <boost/dll/import.hpp>
#include <boost/dll/runtime_symbol_info.hpp>
#include <boost/dll/shared_library.hpp>
#include <functional>

#include "tlmap/TLCMDPool.h"

#ifndef TL_DEFAULT_PLUGIN_PATH
#define TL_DEFAULT_PLUGIN_PATH ""
#endif

namespace TMObjects {

using Factory = TLRefPtr<TLPlugin>();

struct TLPluginLoader::Impl {
    std::function<Factory> factory;
};

TLPluginLoader::TLPluginLoader() : mImpl(std::make_unique<Impl>()) {}

TLPluginLoader::~TLPluginLoader() {
    Unload();
}

bool TLPluginLoader::Load(const std::string& path) {
    Unload();
    try {
        // import_alias keeps the library loaded for as long as the returned function lives.
        mImpl->factory =
            boost::dll::import_alias<Factory>(boost::dll::fs::path(path), "GetTMPlugIn");
    } catch (const std::exception& e) {
        mError = "cannot load the plugin " + path + ": " + e.what();
        return false;
    }
    mPlugin = mImpl->factory();
    if (!mPlugin) {
        mError = "the plugin factory of " + path + " gave no plugin";
        mImpl->factory = nullptr;
        return false;
    }
    mPlugin->InitPlugin();
    return true;
}

void TLPluginLoader::Unload() {
    if (mPlugin) {
        TLCMDPool::GetInstance()->Clear();
        mPlugin->UnloadPlugin();
        mPlugin.reset();
    }
    mImpl->factory = nullptr;
}

std::string TLPluginLoader::DefaultPluginPath() {
    return TL_DEFAULT_PLUGIN_PATH;
}

}  // namespace TMObjects
