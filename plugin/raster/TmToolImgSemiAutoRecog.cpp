#include "raster/TmToolImgSemiAutoRecog.h"

namespace TMObjects {

TmToolImgSemiAutoRecog::TmToolImgSemiAutoRecog() = default;

TmToolImgSemiAutoRecog::TmToolImgSemiAutoRecog(TLToolBuddy* buddy) : TLTool(buddy) {}

TmToolImgSemiAutoRecog::~TmToolImgSemiAutoRecog() = default;

}  // namespace TMObjects
