#pragma once

#include "tlmap/TLRasterWorkspace.h"

namespace TMObjects {

// A folder of raster files, by the connection property "FILEPATH": a raster is opened by its
// file name in the folder.
class TLGdalRasterWorkspace : public TLRasterWorkspace {
public:
    explicit TLGdalRasterWorkspace(const TLString& folder) : mFolder(folder) {}
    ~TLGdalRasterWorkspace() override;

    TLRefPtr<TLRasterDataset> OpenRasterDataset(const TLString& name) override;
    const TLString& GetFolder() const { return mFolder; }

private:
    TLString mFolder;
};

}  // namespace TMObjects
