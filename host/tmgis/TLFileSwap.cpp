#include "tmgis/TLFileSwap.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <fstream>
#include <set>

namespace TMObjects {

namespace fs = std::filesystem;

namespace {

const char* const kPrefix = ".tlsave-";
const char* const kDecided = "swap";

// Data on disk, not only in the page cache, before the step that relies on it.
void flush(const fs::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

// "new NAME" for each file to move in, "old NAME" for each old file to remove.
bool writeDecision(const fs::path& scratch, const std::vector<std::string>& fresh,
                   const std::vector<std::string>& gone) {
    const fs::path draft = scratch / "swap.draft";
    {
        std::ofstream out(draft, std::ios::binary);
        for (const std::string& name : fresh) out << "new " << name << "\n";
        for (const std::string& name : gone) out << "old " << name << "\n";
        out << "end\n";
        if (!out.flush()) return false;
    }
    flush(draft);
    std::error_code failed;
    fs::rename(draft, scratch / kDecided, failed);
    flush(scratch);
    return !failed;
}

}  // namespace

bool TLFileSwap::MakeScratch(const fs::path& original, fs::path& scratch) {
    std::string pattern = (original.parent_path() / (std::string(kPrefix) + "XXXXXX")).string();
    if (!mkdtemp(pattern.data())) return false;
    scratch = pattern;
    return true;
}

bool TLFileSwap::Swap(const fs::path& scratch, const fs::path& into,
                      const std::vector<std::string>& old, bool& decided, std::string& why) {
    decided = false;
    std::vector<std::string> fresh, gone;
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(scratch)) {
        flush(entry.path());
        fresh.push_back(entry.path().filename().string());
        names.insert(fresh.back());
    }
    for (const std::string& file : old) {
        const fs::path path(file);
        // Only files of the folder itself: a swap never reaches elsewhere.
        if (path.parent_path() != into || names.count(path.filename().string())) continue;
        gone.push_back(path.filename().string());
    }
    if (!writeDecision(scratch, fresh, gone)) {
        std::error_code ignored;
        fs::remove_all(scratch, ignored);  // undecided: the old files were never touched
        why = "cannot write to " + scratch.string();
        return false;
    }
    decided = true;
    return finish(scratch, into, why);
}

bool TLFileSwap::finish(const fs::path& scratch, const fs::path& into, std::string& why) {
    std::ifstream in(scratch / kDecided, std::ios::binary);
    std::vector<std::string> fresh, gone;
    bool ended = false;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("new ", 0) == 0) fresh.push_back(line.substr(4));
        if (line.rfind("old ", 0) == 0) gone.push_back(line.substr(4));
        if (line == "end") ended = true;
    }
    if (!ended) {
        why = "the list of files in " + scratch.string() + " is cut short";
        return false;
    }
    // Each step can be done again: a file moved already is no longer in the scratch folder.
    for (const std::string& name : fresh) {
        std::error_code failed;
        if (!fs::exists(scratch / name, failed)) continue;
        fs::rename(scratch / name, into / name, failed);
        if (failed) {
            why = "cannot move " + name + " into " + into.string() + ": " + failed.message();
            return false;
        }
    }
    for (const std::string& name : gone) {
        std::error_code ignored;
        fs::remove(into / name, ignored);
    }
    flush(into);
    std::error_code ignored;
    fs::remove(scratch / kDecided, ignored);
    fs::remove_all(scratch, ignored);
    return true;
}

void TLFileSwap::Recover(const fs::path& folder, std::vector<std::string>& said) {
    std::error_code failed;
    std::vector<fs::path> scratches;
    for (fs::directory_iterator it(folder, failed), end; !failed && it != end; it.increment(failed))
        if (it->path().filename().string().rfind(kPrefix, 0) == 0 && it->is_directory())
            scratches.push_back(it->path());
    for (const fs::path& scratch : scratches) {
        std::error_code ignored;
        if (!fs::exists(scratch / kDecided, ignored)) {
            fs::remove_all(scratch, ignored);
            if (ignored)
                said.push_back("cannot remove " + scratch.string() + ": " + ignored.message());
            else
                said.push_back("a save in " + folder.string() +
                               " was interrupted before it changed anything; its scratch folder "
                               "was removed");
            continue;
        }
        std::string why;
        if (finish(scratch, folder, why))
            said.push_back("a save in " + folder.string() +
                           " was interrupted while it put the new files in place; it was "
                           "finished, the data source holds what was saved");
        else
            said.push_back("a save in " + folder.string() +
                           " was interrupted and cannot be finished: " + why);
    }
}

}  // namespace TMObjects
