#pragma once

#include <map>
#include <string>
#include <vector>

#include "tlmap/TLLayer.h"
#include "tlsde/TLField.h"

namespace TMObjects {

// The layers a script will have, as far as can be told before it runs: those of the data it
// opens and those it makes. A script is checked against them as a whole before its first command
// runs, so that a name it gets wrong stops it before anything happened.
class TLScriptLayers {
public:
    struct Layer {
        TLLayer::LayerType kind = TLLayer::UnknownLayer;
        bool feature = true;  // false for a raster
        bool made = false;    // made by the script, and so open to set-up features
        std::map<std::string, TLField::FieldType> fields;
    };

    void Add(const std::string& name, const Layer& layer);
    // Null when the script has no such layer (yet).
    const Layer* Find(const std::string& name) const;
    // The layers of a data file that the script writes before it opens it.
    void WillWrite(const std::string& path, const std::map<std::string, Layer>& layers);
    const std::map<std::string, Layer>* Written(const std::string& path) const;

private:
    std::map<std::string, Layer> mLayers;
    std::map<std::string, std::map<std::string, Layer>> mFiles;
};

}  // namespace TMObjects
