#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace TMObjects {

// Puts the files of a data source written afresh in a scratch folder in place of the old ones,
// so that a kill at any moment leaves the data source exactly old or exactly new:
// 1. the new files are written and flushed in a scratch folder ".tlsave-XXXXXX" beside the old;
// 2. a list of the files to move in and the old files to remove is written in the scratch
//    folder and renamed to "swap" in one step: from then on the swap is decided;
// 3. the files are moved, the old ones the new data source does not have are removed, and the
//    scratch folder goes.
// The next open of the folder (Recover) finishes a decided swap and throws away an undecided
// one, whose old files were never touched.
class TLFileSwap {
public:
    // A fresh scratch folder beside `original`, on its file system so that renames are atomic.
    static bool MakeScratch(const std::filesystem::path& original, std::filesystem::path& scratch);
    // Steps 2 and 3. `old` are the old data source's files. False with the reason in `why` when
    // the swap could not be decided (nothing changed, the scratch folder removed) or not
    // finished (Recover will finish it).
    static bool Swap(const std::filesystem::path& scratch, const std::filesystem::path& into,
                     const std::vector<std::string>& old, bool& decided, std::string& why);
    // Finishes or throws away every swap a killed save left in `folder`; one line a swap said.
    static void Recover(const std::filesystem::path& folder, std::vector<std::string>& said);

private:
    static bool finish(const std::filesystem::path& scratch, const std::filesystem::path& into,
                       std::string& why);
};

}  // namespace TMObjects
