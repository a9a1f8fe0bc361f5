// tlrun on mutated session scripts: each of the project's scenario scripts, changed at random
// (seeded), is played by tlrun in a fresh folder. Whatever the script, tlrun ends with exit
// status 0, 1 or 2 (1 and 2 with a line on the standard error), never a signal or a hang.
//
//   fuzz_tlrun TLRUN SCRIPTS_FOLDER [--runs N] [--seed S]
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "FuzzMutate.h"

namespace fs = std::filesystem;

namespace {

std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

// Runs tlrun on `script` in `workdir` with a demo GeoPackage there; the exit status, or -signal,
// or -1000 for a hang. The standard error goes to `errors`.
int play(const std::string& tlrun, const fs::path& script, const fs::path& workdir,
         const fs::path& errors) {
    const pid_t child = fork();
    if (child == 0) {
        const int out = open("/dev/null", O_WRONLY);
        const int err = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        dup2(out, 1);
        dup2(err, 2);
        execl(tlrun.c_str(), tlrun.c_str(), "--workdir", workdir.c_str(), script.c_str(),
              (char*)nullptr);
        _exit(127);
    }
    for (int waited = 0; waited < 1200; ++waited) {  // 60 s
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child)
            return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
        usleep(50000);
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return -1000;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: fuzz_tlrun TLRUN SCRIPTS_FOLDER [--runs N] [--seed S]\n";
        return 2;
    }
    const std::string tlrun = argv[1];
    unsigned runs = 60, seed = 1;
    for (int i = 3; i + 1 < argc; i += 2) {
        if (!std::strcmp(argv[i], "--runs"))
            runs = unsigned(std::strtoul(argv[i + 1], nullptr, 10));
        if (!std::strcmp(argv[i], "--seed"))
            seed = unsigned(std::strtoul(argv[i + 1], nullptr, 10));
    }
    std::vector<std::string> seeds;
    for (const auto& entry : fs::recursive_directory_iterator(argv[2]))
        if (entry.path().extension() == ".tls") seeds.push_back(bytesOf(entry.path()));
    std::sort(seeds.begin(), seeds.end());
    const fs::path folder = fs::temp_directory_path() / ("tlfuzz-run-" + std::to_string(getpid()));
    std::mt19937 random(seed);
    for (unsigned run = 0; run < runs; ++run) {
        std::string script = seeds[random() % seeds.size()];
        TMObjects::FuzzMutate(script, seeds, random);
        fs::remove_all(folder);
        fs::create_directories(folder / "work");
        // The scripts' data: a demo GeoPackage under the names they use.
        if (std::system(
                (tlrun + " make-demo " + (folder / "work" / "demo.gpkg").string() + " > /dev/null")
                    .c_str()) != 0)
            return 2;
        const fs::path file = folder / "mutated.tls";
        std::ofstream(file, std::ios::binary) << script;
        const int status = play(tlrun, file, folder / "work", folder / "errors");
        const std::string errors = bytesOf(folder / "errors");
        const bool said = status == 0 || (!errors.empty() && errors.back() == '\n');
        if (status < 0 || status > 2 || !said) {
            const fs::path kept = fs::path(argv[0]).string() + ".failing.tls";
            fs::copy_file(file, kept, fs::copy_options::overwrite_existing);
            std::cerr << "fuzz_tlrun: run " << run << " (seed " << seed << ") ended with "
                      << (status == -1000 ? "a hang" : "status " + std::to_string(status))
                      << "; the script is in " << kept << "\n"
                      << errors;
            return 1;
        }
    }
    fs::remove_all(folder);
    std::cout << "fuzz_tlrun: " << runs << " mutated scripts from seed " << seed
              << " ended with 0, 1 or 2\n";
    return 0;
}
