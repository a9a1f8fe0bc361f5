#pragma once

#include <string>

namespace TMObjects {

// Every row of every table of an SQLite file (its schema included), as text in a fixed order:
// two dumps are equal when the tables hold byte for byte the same values.
std::string SqliteDump(const std::string& path);
// The first line where two dumps differ, both ways; empty when they are equal.
std::string DumpDifference(const std::string& was, const std::string& is);

}  // namespace TMObjects
