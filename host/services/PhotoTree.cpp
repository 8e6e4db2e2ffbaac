#include "host/services/PhotoTree.h"

#include "base/Error.h"
#include "base/Files.h"
#include "host/server/Manifest.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace host {

PhotoTree::PhotoTree(std::string root)
    : root_(std::move(root)), handle_(open(root_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
    if (handle_ < 0) throw lumarin::FileError("open the folder", root_, std::strerror(errno));
}

PhotoTree::~PhotoTree() {
    lookAhead_.reset();
    close(handle_);
}

std::string PhotoTree::FolderOf(std::int32_t listingNumber) {
    std::string folder;
    for (const std::int32_t digits : {listingNumber / 10, listingNumber})
        folder.append(std::to_string(digits % 10)).append(lumarin::files::Separator);
    return folder;
}

std::string PhotoTree::NameOf(std::int32_t listingNumber, int photo) {
    std::string name = FolderOf(listingNumber);
    name += std::to_string(listingNumber);
    name += PhotoLetter(static_cast<std::size_t>(photo) - 1);
    return name += ".jpg";
}

void PhotoTree::LookAhead() {
    lookAhead_.reset();
    lookAhead_ = std::make_unique<PhotoLookAhead>(handle_);
}

std::optional<std::uint64_t> PhotoTree::LengthOf(std::int32_t listingNumber, int photo,
                                                 const std::string& name) {
    if (lookAhead_ != nullptr && lookAhead_->IsOver()) lookAhead_.reset();
    if (lookAhead_ != nullptr)
        if (const auto length = lookAhead_->TakeLength(listingNumber, photo)) return length;
    struct stat found {};
    if (fstatat(handle_, name.c_str(), &found, 0) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
    return static_cast<std::uint64_t>(found.st_size);
}

}  // namespace host
