#include "host/services/PhotoTree.h"

#include "base/Error.h"
#include "base/Files.h"
#include "host/server/Manifest.h"

namespace host {

PhotoTree::PhotoTree(std::string root) : root_(std::move(root)), tree_(root_) {}

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
    lookAhead_ = std::make_unique<PhotoLookAhead>(tree_);
}

std::optional<std::uint64_t> PhotoTree::LengthOf(std::int32_t listingNumber, int photo,
                                                 const std::string& name) {
    if (lookAhead_ != nullptr && lookAhead_->IsOver()) lookAhead_.reset();
    if (lookAhead_ != nullptr)
        if (const auto length = lookAhead_->TakeLength(listingNumber, photo)) return length;
    return tree_.LengthOf(name);
}

}  // namespace host
