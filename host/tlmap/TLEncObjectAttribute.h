#pragma once

#include <string>

namespace TMObjects {

// One attribute of a chart object: its acronym and its value, both UTF-8.
struct TLEncObjectAttribute {
    std::string name;
    std::string value;
};

}  // namespace TMObjects
