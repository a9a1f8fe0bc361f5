#include "tlbase/TLColor.h"

namespace TMObjects {

const TLColor TLColor::RED_(255, 0, 0);
const TLColor TLColor::WHITE_(255, 255, 255);

}  // namespace TMObjects
