#pragma once

#include "tlbase/TLRefBase.h"
#include "tlbase/TLString.h"

namespace TMObjects {

// What an image render does with the cells it shows: stretch them over a colour ramp
// (`TLImageStretchRenderInfo`) or give each class of values its colour (`TLImageClassRenderInfo`).
// The type is the name the render goes by: "ImageStretch", "ImageClass".
class TLImageRenderInfo : public TLRefBase {
public:
    explicit TLImageRenderInfo(const TLString& type) : mType(type) {}
    ~TLImageRenderInfo() override;
    const TLString& GetType() const { return mType; }

private:
    TLString mType;
};

}  // namespace TMObjects
