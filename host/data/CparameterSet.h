#pragma once

namespace TMObjects {

// Numeric settings shared by the data operations.
class CparameterSet {
public:
    // The tolerance under which two coordinates count as the same, for a coordinate of
    // `digits` significant decimal places.
    static double commonDot(int digits);
};

}  // namespace TMObjects
