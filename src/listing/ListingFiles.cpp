#include "listing/ListingFiles.h"

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "listing/ListingState.h"

namespace lumarin::listing_files {

std::string PhotoName(std::int32_t listNum, int index) {
    if (index < 0 || index >= MaximumPhotoSlots) throw IndexError("clsPMListingRec", index);
    return std::to_string(listNum) + static_cast<char>('a' + index) + ".jpg";
}

std::string StateName(std::int32_t listNum) { return std::to_string(listNum) + ".dat"; }

std::string JournalName(std::int32_t listNum) { return std::to_string(listNum) + ".jnl"; }

std::optional<std::int32_t> ListingOf(std::string_view name) {
    const std::string_view number = name.substr(0, name.find_first_not_of("0123456789"));
    std::string_view ending = name.substr(number.size());
    if (ending.ends_with(".part")) ending.remove_suffix(5);
    const bool isState = ending == ".dat" || ending == ".jnl";
    const bool isPhoto = ending.size() == 5 && ending[0] >= 'a' && ending[0] <= 'z' &&
                         (ending.ends_with(".jpg") || ending.ends_with(".tmp"));
    return isState || isPhoto ? ParseListingNumber(number) : std::nullopt;
}

bool BearsNumber(const std::string& name, std::int32_t listNum) {
    const std::string number = std::to_string(listNum);
    if (name.size() <= number.size() || name.compare(0, number.size(), number) != 0) return false;
    const char next = name[number.size()];
    return next < '0' || next > '9';
}

std::vector<std::string> List(const std::string& folder, std::int32_t listNum, const std::string& extension) {
    return files::List(folder, [&](const std::string& name) {
        return ListingOf(name) == listNum && name.ends_with(extension);
    });
}

void DeleteAll(const std::string& folder, std::int32_t listNum) {
    for (const std::string& name : {StateName(listNum), JournalName(listNum)})
        if (files::FileExists(folder + name)) files::Delete(folder + name);
    for (const std::string& name : List(folder, listNum)) files::Delete(folder + name);
}

void TryDeleteAll(const std::string& folder, std::int32_t listNum) noexcept {
    try {
        for (const std::string& name : {StateName(listNum), JournalName(listNum)})
            files::TryDelete(folder + name);
        for (const std::string& name : List(folder, listNum)) files::TryDelete(folder + name);
    } catch (...) {  // a folder that cannot be listed: what is left is taken for nothing but a photo
    }
}

namespace {

/// A folder for files that are set aside, in which none is `taken` yet.
template <class Taken>
std::string FolderAside(const std::string& folder, Taken taken) {
    const std::string all = folder + "Set aside" + files::Separator;
    std::string aside = all;
    files::EnsureFolder(aside);
    for (int number = 2; taken(aside); ++number) {
        aside = all + std::to_string(number) + files::Separator;
        files::EnsureFolder(aside);
    }
    return aside;
}

}  // namespace

void SetOthersAside(const std::string& folder, std::int32_t listNum) noexcept {
    try {
        for (const std::string& name :
             files::List(folder, [&](const std::string& file) { return BearsNumber(file, listNum); }))
            if (ListingOf(name) != listNum) SetAside(folder, name);
    } catch (...) {  // it is in nobody's way where it is
    }
}

void SetAside(const std::string& folder, std::int32_t listNum) {
    const std::string aside =
        FolderAside(folder, [&](const std::string& at) { return !List(at, listNum).empty(); });
    const std::string state = StateName(listNum);
    for (const std::string& name : List(folder, listNum))
        if (name != state) files::Rename(folder + name, aside + name);
    // As long as it is here, whatever is left counts as work that cannot be read.
    files::Rename(folder + state, aside + state);
}

void SetLookalikesAside(const std::string& folder, std::int32_t listNum) {
    const auto looksAlike = [&](const std::string& name) {
        return ListingOf(name) != listNum && ListingOf(text::LowerAscii(name)) == listNum;
    };
    for (const std::string& name : files::List(folder, looksAlike)) SetAside(folder, name);
}

void SetAside(const std::string& folder, const std::string& name) {
    const std::string aside = FolderAside(folder, [&](const std::string& at) {
        return files::FileExists(at + name) || files::FolderExists(at + name);
    });
    files::Rename(folder + name, aside + name);
}

}  // namespace lumarin::listing_files
