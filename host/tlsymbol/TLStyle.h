#pragma once

namespace TMObjects {

// A drawing style of the symbol library, handed to the view's flashing and drawing calls.
class TLStyle {
public:
    virtual ~TLStyle() = default;
};

}  // namespace TMObjects
