#include "tmgis/TLGdalRasterWorkspace.h"

#include <filesystem>

#include "tlbase/TLConnectionKeys.h"
#include "tmgis/TLGdalRasterDataset.h"

namespace TMObjects {

namespace {

// Folders of raster files open by their path; a path that is no folder opens nothing.
const bool registered = TLRasterWorkspace::RegisterType(
    WORKSPACE_TYPE_RASTERFILE, [](const TLRasterWorkspace::Properties& properties) {
        auto it = properties.find(CONNECT_FILEPATH);
        if (it == properties.end() || !std::filesystem::is_directory(it->second.toStdString()))
            return TLRefPtr<TLRasterWorkspace>();
        return TLRefPtr<TLRasterWorkspace>(new TLGdalRasterWorkspace(it->second));
    });

}  // namespace

TLGdalRasterWorkspace::~TLGdalRasterWorkspace() = default;

TLRefPtr<TLRasterDataset> TLGdalRasterWorkspace::OpenRasterDataset(const TLString& name) {
    const std::filesystem::path path =
        std::filesystem::path(mFolder.toStdString()) / name.toStdString();
    return TLRefPtr<TLRasterDataset>(
        TLGdalRasterDataset::Open(TLString(path.string()), name).get());
}

}  // namespace TMObjects
