// A seeded mutator for the fuzz targets where libFuzzer is not at hand (the GCC builds ctest
// runs): each run takes a seed of the target, mutates it (flipped bits, edge bytes, inserted,
// deleted, repeated and spliced stretches, a cut) and gives it to the target. An input that does
// not end within the time allowed is a hang. When an input brings the program down, it is written
// to FUZZER.last-input on the way, so that it can be played again with
// `FUZZER --replay FUZZER.last-input`.
//
//   FUZZER [--runs N] [--seed S] [--replay FILE] [--seeds-to FOLDER]
//
// --seeds-to writes the target's seeds as files of a corpus for libFuzzer, and runs nothing.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <random>
#include <sstream>

#include "FuzzMutate.h"
#include "FuzzTarget.h"

namespace {

std::string lastInput;
const std::string* current = nullptr;

// Only calls that are safe in a signal handler: the input is written out, then the signal goes
// on as it would have.
void fallen(int signal) {
    const int fd = open(lastInput.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd >= 0 && current) (void)!write(fd, current->data(), current->size());
    if (fd >= 0) close(fd);
    const char text[] =
        "fuzz: an input brought the program down (or hung 20 s); it is in the "
        ".last-input file beside the program\n";
    (void)!write(2, text, sizeof text - 1);
    ::signal(signal, SIG_DFL);
    raise(signal == SIGALRM ? SIGABRT : signal);
}

int run(const std::string& bytes) {
    current = &bytes;
    alarm(20);
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    alarm(0);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    unsigned runs = 1000, seed = 1;
    std::string replay, corpus;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (!std::strcmp(argv[i], "--runs"))
            runs = unsigned(std::strtoul(argv[i + 1], nullptr, 10));
        else if (!std::strcmp(argv[i], "--seed"))
            seed = unsigned(std::strtoul(argv[i + 1], nullptr, 10));
        else if (!std::strcmp(argv[i], "--replay"))
            replay = argv[i + 1];
        else if (!std::strcmp(argv[i], "--seeds-to"))
            corpus = argv[i + 1];
    }
    if (!corpus.empty()) {
        int n = 0;
        for (const std::string& input : FuzzSeeds())
            std::ofstream(corpus + "/seed-" + std::to_string(++n), std::ios::binary) << input;
        return 0;
    }
    for (int fatal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGALRM}) signal(fatal, fallen);
    lastInput = std::string(argv[0]) + ".last-input";
    if (!replay.empty()) {
        std::ifstream in(replay, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        lastInput += ".replayed";
        return run(bytes.str());
    }
    const std::vector<std::string> seeds = FuzzSeeds();
    std::mt19937 random(seed);
    for (const std::string& input : seeds) run(input);
    for (unsigned i = 0; i < runs; ++i) {
        std::string input = seeds[random() % seeds.size()];
        TMObjects::FuzzMutate(input, seeds, random);
        run(input);
    }
    std::cout << "fuzz: " << seeds.size() + runs << " inputs from seed " << seed
              << ", none crashed or hung\n";
    return 0;
}
