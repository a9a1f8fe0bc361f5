#pragma once

#include "tlsymbol/TLStyleLine.h"

namespace TMObjects {

// A line drawn as a border of its own width, in one colour.
class TLStyleBrinkLine : public TLStyleLine {
public:
    TLStyleBrinkLine() = default;
    ~TLStyleBrinkLine() override;

    int GetTypeID() const override { return BrinkLineType; }
};

}  // namespace TMObjects
