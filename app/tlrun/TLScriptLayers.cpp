#include "TLScriptLayers.h"

namespace TMObjects {

void TLScriptLayers::Add(const std::string& name, const Layer& layer) {
    // As on the map, the first layer of a name is the one the script reaches by it.
    mLayers.emplace(name, layer);
}

const TLScriptLayers::Layer* TLScriptLayers::Find(const std::string& name) const {
    auto it = mLayers.find(name);
    return it == mLayers.end() ? nullptr : &it->second;
}

void TLScriptLayers::WillWrite(const std::string& path,
                               const std::map<std::string, Layer>& layers) {
    mFiles[path] = layers;
}

const std::map<std::string, TLScriptLayers::Layer>* TLScriptLayers::Written(
    const std::string& path) const {
    auto it = mFiles.find(path);
    return it == mFiles.end() ? nullptr : &it->second;
}

}  // namespace TMObjects
