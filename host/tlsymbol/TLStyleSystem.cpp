#include "tlsymbol/TLStyleSystem.h"

#include <cstdio>
#include <filesystem>
#include <vector>

#include "tlsymbol/TLStyleLibraryFile.h"

namespace TMObjects {

TLStyleSystem* TLStyleSystem::instance() {
    static TLStyleSystem system;
    return &system;
}

std::string TLStyleSystem::key(const TLString& path) {
    std::error_code ignored;
    const std::filesystem::path absolute =
        std::filesystem::absolute(std::filesystem::u8path(path.toStdString()), ignored);
    return absolute.lexically_normal().u8string();
}

void TLStyleSystem::fail(const TLString& reason) {
    mLastError = reason;
    // Whoever shows the failure to the user shows its own words; the reason goes to the log.
    std::fprintf(stderr, "symbol library: %s\n", reason.toStdString().c_str());
}

TLStyleDB* TLStyleSystem::AddNewStyleDB(const TLString& path) {
    std::vector<TLRefPtr<TLStyle>> styles;
    const std::filesystem::path file = std::filesystem::u8path(key(path));
    std::error_code error;
    if (path.IsEmpty()) {
        fail(TLString("A symbol library needs a file name"));
        return nullptr;
    }
    if (std::filesystem::exists(file, error)) {
        TLString reason;
        if (std::filesystem::is_directory(file, error)) {
            fail(TLString("\"" + path.toStdString() + "\" is a folder, not a symbol library"));
            return nullptr;
        }
        if (!TLStyleLibraryFile::Read(path, styles, reason)) {
            fail(reason);
            return nullptr;
        }
    } else if (!std::filesystem::is_directory(file.parent_path(), error)) {
        fail(TLString("The folder of \"" + path.toStdString() + "\" does not exist"));
        return nullptr;
    }
    std::unique_ptr<TLStyleDB>& library = mLibraries[key(path)];
    if (!library) library.reset(new TLStyleDB(path));
    library->Clear();
    for (const TLRefPtr<TLStyle>& style : styles) library->AddStyleTakeOwnership(style);
    return library.get();
}

bool TLStyleSystem::SaveStyleDB(const TLString& path) {
    const TLStyleDB* library = GetStyleDB(path);
    if (!library) {
        fail(TLString("No symbol library of \"" + path.toStdString() + "\" is open"));
        return false;
    }
    std::vector<TLRefPtr<TLStyle>> styles;
    for (int i = 0; i < library->GetStyleCount(); ++i) styles.push_back(library->GetStyle(i));
    TLString reason;
    if (TLStyleLibraryFile::Write(path, styles, reason)) return true;
    fail(reason);
    return false;
}

TLStyleDB* TLStyleSystem::GetStyleDB(const TLString& path) const {
    const auto found = mLibraries.find(key(path));
    return found == mLibraries.end() ? nullptr : found->second.get();
}

void TLStyleSystem::CloseStyleDB(const TLString& path) {
    mLibraries.erase(key(path));
}

}  // namespace TMObjects
