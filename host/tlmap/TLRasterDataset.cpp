#include "tlmap/TLRasterDataset.h"

namespace TMObjects {

TLRasterDataset::~TLRasterDataset() = default;

}  // namespace TMObjects
