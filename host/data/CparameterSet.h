#pragma once

namespace TMObjects {

// Numeric settings shared by the data operations.
class CparameterSet {
public:
    // The tolerance under which two coordinates count as the same, for coordinates kept to
    // `digits` decimal places: 10 to the power -digits (commonDot(10) is 1e-10).
    static double commonDot(int digits);
};

}  // namespace TMObjects
