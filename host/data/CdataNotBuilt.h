#pragma once

#include <stdexcept>
#include <string>

namespace TMObjects {

// Thrown by an operation of the data library that is declared but not built yet, so that a
// caller fails loudly instead of going on with an empty answer.
inline std::logic_error CdataNotBuilt(const char* operation) {
    return std::logic_error(std::string(operation) + ": not built yet");
}

}  // namespace TMObjects
