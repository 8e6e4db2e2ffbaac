#include "listing/PhotoJournal.h"

#include <optional>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"

namespace lumarin::photo_journal {

namespace {

constexpr std::string_view Magic = "LJ2";
constexpr std::string_view MagicWithoutCheck = "LJ1";  ///< earlier versions wrote these
constexpr const char* DamagedJournal = "its journal is damaged";
constexpr std::size_t HeaderSize = 6;  // magic, operation, first, second
constexpr std::size_t CheckSize = 4;

class Recovery {
public:
    Recovery(std::string folder, ListingState state) : folder_(std::move(folder)), state_(std::move(state)) {}

    ListingState Finish(const std::optional<Entry>& journal) {
        FinishMove(journal);
        if (journal && journal->operation == Operation::Remove) CloseGap(journal->first);
        TakeInCapturedPhoto();
        return state_;
    }

private:
    std::string Photo(int index) const { return folder_ + listing_files::PhotoName(state_.ListNum, index); }
    bool Has(int index) const { return files::FileExists(Photo(index)); }

    void FinishMove(const std::optional<Entry>& journal) {
        for (int index = 0; index < MaximumPhotoSlots; ++index) {
            const std::string waiting = text::ReplaceAll(Photo(index), ".jpg", ".tmp");
            if (!files::FileExists(waiting)) continue;
            const bool toSecond = journal && journal->operation == Operation::Move &&
                                  journal->first == index && !Has(journal->second);
            if (!toSecond && Has(index)) files::Rename(Photo(index), Photo(FirstMissing()));
            files::Rename(waiting, Photo(toSecond ? journal->second : index));
        }
    }

    int FirstMissing() const {
        int index = 0;
        while (index < MaximumPhotoSlots && Has(index)) ++index;
        return index;
    }

    void CloseGap(int removed) {
        // One photo more than the state counts: the file to remove is still there.
        if (FirstMissing() == state_.PhotoCount + 1) files::Delete(Photo(removed));
        for (int index = FirstMissing(); index < state_.PhotoCount && Has(index + 1); ++index)
            files::Rename(Photo(index + 1), Photo(index));
    }

    void TakeInCapturedPhoto() {
        while (state_.PhotoCount < MaximumPhotoSlots && Has(state_.PhotoCount)) {
            const std::uint64_t length = files::FileLength(Photo(state_.PhotoCount));
            for (int index = 0; index < state_.PhotoCount; ++index) {
                if (!Has(index) || files::FileLength(Photo(index)) != length) continue;
                files::Delete(Photo(state_.PhotoCount));  // the refusal of a duplicate was interrupted
                return;
            }
            state_.Photos[static_cast<std::size_t>(state_.PhotoCount)] = {DefaultDescriptionCode, "", ""};
            ++state_.PhotoCount;
        }
    }

    std::string folder_;
    ListingState state_;
};

[[noreturn]] void Damaged(const std::string& reason) {
    throw Error(ApplicationErrorNumber, "state file",
                "The saved state of a listing cannot be read: " + reason);
}

ListingState StateIn(std::string_view bytes) {
    try {
        return state_file::Decode(bytes);
    } catch (const Error&) {
        Damaged(DamagedJournal);
    }
}

/// FNV-1a: every change of a single byte gives another number.
std::string CheckOf(std::string_view bytes) {
    std::uint32_t hash = 0x811C9DC5U;
    for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 0x01000193U;
    std::string check;
    for (unsigned shift = 0; shift < 32; shift += 8) check += static_cast<char>((hash >> shift) & 0xFFU);
    return check;
}

std::string_view WithoutCheck(std::string_view bytes) {
    if (bytes.starts_with(MagicWithoutCheck)) return bytes;
    if (!bytes.starts_with(Magic) || bytes.size() < HeaderSize + CheckSize) Damaged(DamagedJournal);
    const std::string_view checked = bytes.substr(0, bytes.size() - CheckSize);
    if (bytes.substr(checked.size()) != CheckOf(checked)) Damaged(DamagedJournal);
    return checked;
}

Entry Decode(std::string_view file) {
    const std::string_view bytes = WithoutCheck(file);
    if (bytes.size() < HeaderSize) Damaged(DamagedJournal);
    const Entry entry{.operation = static_cast<Operation>(bytes[3]),
                      .first = bytes[4],
                      .second = bytes[5],
                      .state = StateIn(bytes.substr(HeaderSize))};
    const auto isIndex = [](int index) { return index >= 0 && index < MaximumPhotoSlots; };
    if (entry.operation > Operation::Unchanged || !isIndex(entry.first) || !isIndex(entry.second))
        Damaged(DamagedJournal);
    return entry;
}

/// Nothing when there is no journal: then the state file counts.
std::optional<Entry> Read(const std::string& folder, std::int32_t listNum) {
    const std::string path = folder + listing_files::JournalName(listNum);
    return files::FileExists(path) ? std::optional(Decode(files::ReadAll(path))) : std::nullopt;
}

}  // namespace

void Write(const std::string& folder, const Entry& entry) {
    std::string bytes(Magic);
    bytes += static_cast<char>(entry.operation);
    bytes += static_cast<char>(entry.first);
    bytes += static_cast<char>(entry.second);
    bytes += state_file::Encode(entry.state);
    files::WriteWhole(folder + listing_files::JournalName(entry.state.ListNum), bytes + CheckOf(bytes));
}

void Remove(const std::string& folder, std::int32_t listNum) {
    const std::string path = folder + listing_files::JournalName(listNum);
    if (files::FileExists(path)) files::Delete(path);
}

SavedWork Recover(const std::string& folder, std::int32_t listNum) {
    const std::optional<Entry> journal = Read(folder, listNum);
    ListingState state =
        journal ? journal->state : state_file::Read(folder + listing_files::StateName(listNum));
    if (state.ListNum != listNum) Damaged("it belongs to listing " + std::to_string(state.ListNum));
    const std::int32_t photosBefore = state.PhotoCount;
    const bool unchanged = journal && journal->operation == Operation::Unchanged;
    SavedWork work{Recovery(folder, std::move(state)).Finish(journal), true};
    work.changed = !unchanged || work.state.PhotoCount != photosBefore;
    return work;
}

}  // namespace lumarin::photo_journal
