#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// A fuzz target: LLVMFuzzerTestOneInput takes any bytes and must end without a signal, a
// sanitizer report or a hang. Built with clang's libFuzzer (scripts/fuzz) or with the seeded
// mutator of FuzzDriver.cpp, which ctest runs.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

// The inputs a run starts from, made by the target itself.
std::vector<std::string> FuzzSeeds();
