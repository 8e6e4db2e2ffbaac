#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace lumarin::testing {

/// A folder of its own for one test, gone at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = Parent() / ("lumarin-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Where all of them are made.
    static std::filesystem::path& Parent() {
        static std::filesystem::path parent = std::filesystem::temp_directory_path();
        return parent;
    }

    /// With a separator at the end.
    std::string Path() const {
        const std::u8string utf8 = (path_ / "").u8string();
        return {utf8.begin(), utf8.end()};
    }

private:
    std::filesystem::path path_;
};

}  // namespace lumarin::testing
