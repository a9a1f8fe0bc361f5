#pragma once

#include "tlbase/TLRefBase.h"

namespace TMObjects {

// The symbology of a feature layer. What a render holds (single symbol, categories, rules) is the
// business of the style side; a layer only keeps the object it was given and hands it back.
class TLFeatureRender : public TLRefBase {
public:
    ~TLFeatureRender() override = default;
};

}  // namespace TMObjects
