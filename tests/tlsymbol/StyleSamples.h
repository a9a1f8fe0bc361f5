#pragma once

#include <string>
#include <vector>

#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// One style of every kind the library knows, each with values other than its defaults, nested
// styles and multi-layer styles included. Named "sample N" from 1.
std::vector<TLRefPtr<TLStyle>> SampleStyles();

// The bytes the style saves to.
std::string SavedBytes(const TLRefPtr<TLStyle>& style);

}  // namespace TMObjects
