#pragma once

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace lumarin::testing {

/// A folder of its own for one test, gone at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "lumarin-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// With a separator at the end.
    std::string Path() const { return path_ + "/"; }

private:
    std::string path_;
};

}  // namespace lumarin::testing
