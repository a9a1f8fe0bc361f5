#pragma once

#include <random>
#include <string>
#include <vector>

namespace TMObjects {

// One to eight random changes of `bytes`: a flipped bit, an edge byte (0, 0xFF, 0x7F, 0x80, a line
// break, a quote), inserted noise, a deleted, repeated or spliced-in stretch (from `seeds`), a
// cut.
void FuzzMutate(std::string& bytes, const std::vector<std::string>& seeds, std::mt19937& random);

}  // namespace TMObjects
