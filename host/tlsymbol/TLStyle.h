#pragma once

#include "tlbase/TLRefBase.h"

namespace TMObjects {

// A drawing style of the symbol library: how a geometry is stroked or filled when the view
// draws or flashes it.
class TLStyle : public TLRefBase {
public:
    ~TLStyle() override = default;
};

}  // namespace TMObjects
