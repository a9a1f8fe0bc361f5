#pragma once

#include "tlsymbol/TLStyleFill.h"

namespace TMObjects {

// A plain background under an outline.
class TLStyleSimpleFill : public TLStyleFill {
public:
    TLStyleSimpleFill() = default;
    ~TLStyleSimpleFill() override;

    int GetTypeID() const override { return SimpleFillType; }
};

}  // namespace TMObjects
