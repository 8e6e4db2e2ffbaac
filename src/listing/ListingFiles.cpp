#include "listing/ListingFiles.h"

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"
#include "listing/ListingState.h"

namespace lumarin::listing_files {

std::string PhotoName(std::int32_t listNum, int index) {
    if (index < 0 || index >= MaximumPhotoSlots) throw IndexError("clsPMListingRec", index);
    return std::to_string(listNum) + static_cast<char>('a' + index) + ".jpg";
}

std::string StateName(std::int32_t listNum) { return std::to_string(listNum) + ".dat"; }

std::string JournalName(std::int32_t listNum) { return std::to_string(listNum) + ".jnl"; }

bool IsFileOf(const std::string& name, std::int32_t listNum) {
    const std::string number = std::to_string(listNum);
    if (name.size() <= number.size() || name.compare(0, number.size(), number) != 0) return false;
    const char next = name[number.size()];
    return next < '0' || next > '9';
}

std::vector<std::string> List(const std::string& folder, std::int32_t listNum, const std::string& extension) {
    return files::List(folder, [&](const std::string& name) {
        return IsFileOf(name, listNum) && text::EndsWithIgnoringCase(name, extension);
    });
}

void DeleteAll(const std::string& folder, std::int32_t listNum) {
    for (const std::string& name : {StateName(listNum), JournalName(listNum)})
        if (files::FileExists(folder + name)) files::Delete(folder + name);
    for (const std::string& name : List(folder, listNum)) files::Delete(folder + name);
}

void GiveUp(const std::string& folder, std::int32_t listNum) {
    const std::string state = folder + StateName(listNum);
    if (files::FileExists(state)) files::Delete(state);
    // Without a state the rest is no unsent work any more; what is left of it goes at the next load or send.
    for (const std::string& name : List(folder, listNum)) files::TryDelete(folder + name);
}

void SetAside(const std::string& folder, std::int32_t listNum) {
    const std::string all = folder + "Set aside" + files::Separator;
    std::string aside = all;
    files::EnsureFolder(aside);
    for (int number = 2; !List(aside, listNum).empty(); ++number) {
        aside = all + std::to_string(number) + files::Separator;
        files::EnsureFolder(aside);
    }
    const std::string state = StateName(listNum);
    for (const std::string& name : List(folder, listNum))
        if (name != state) files::Rename(folder + name, aside + name);
    // As long as it is here, whatever is left counts as work that cannot be read.
    files::Rename(folder + state, aside + state);
}

}  // namespace lumarin::listing_files
