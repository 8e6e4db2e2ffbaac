#include "listing/PhotoJournal.h"

#include <optional>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"
#include "listing/KeptFiles.h"
#include "listing/ListingFiles.h"
#include "listing/StateBytes.h"
#include "listing/StateFile.h"

namespace lumarin::photo_journal {

namespace {

constexpr std::string_view Magic = "LJ3";
constexpr std::string_view MagicWithoutHistory = "LJ2";  ///< earlier versions wrote these two
constexpr std::string_view MagicWithoutCheck = "LJ1";
constexpr const char* DamagedJournal = "its journal is damaged";
constexpr std::size_t HeaderSize = 6;  // magic, operation, first, second
constexpr std::size_t CheckSize = 4;

class Recovery {
public:
    Recovery(std::string folder, ListingState state) : folder_(std::move(folder)), state_(std::move(state)) {}

    ListingState Finish(const std::optional<Entry>& journal) {
        FinishMove(journal);
        if (journal && journal->operation == Operation::Remove) CloseGap(journal->first);
        if (journal) kept_files::Fetch(folder_, state_.ListNum, journal->history.Present());
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

ListingState StateIn(std::string_view bytes) {
    try {
        return state_file::Decode(bytes);
    } catch (const Error&) {
        ThrowUnreadable(DamagedJournal);
    }
}

/// A text without the four bytes behind it by which it is known to be sound.
std::string_view Checked(std::string_view bytes) {
    if (bytes.size() < CheckSize) ThrowUnreadable(DamagedJournal);
    const std::string_view checked = bytes.substr(0, bytes.size() - CheckSize);
    if (bytes.substr(checked.size()) != CheckOf(checked)) ThrowUnreadable(DamagedJournal);
    return checked;
}

/// What a journal says besides the history, and what stands behind that.
struct Parts {
    std::string_view present, behind;
};

Parts PartsOf(std::string_view file) {
    if (file.starts_with(MagicWithoutCheck)) return {file, {}};
    if (file.size() < HeaderSize) ThrowUnreadable(DamagedJournal);
    if (file.starts_with(MagicWithoutHistory)) return {Checked(file), {}};
    if (!file.starts_with(Magic)) ThrowUnreadable(DamagedJournal);
    std::size_t size = 0;
    try {
        size = HeaderSize + state_file::EncodedSize(file.substr(HeaderSize)) + CheckSize;
    } catch (const Error&) {
        ThrowUnreadable(DamagedJournal);
    }
    if (file.size() < size) ThrowUnreadable(DamagedJournal);
    return {Checked(file.substr(0, size)), file.substr(size)};
}

/// A journal as it was read.
struct Found {
    Entry entry;
    bool historyLost = false;
};

Found Decode(std::string_view file) {
    const auto [bytes, behind] = PartsOf(file);
    if (bytes.size() < HeaderSize) ThrowUnreadable(DamagedJournal);
    Found found{{.operation = static_cast<Operation>(bytes[3]),
                 .first = bytes[4],
                 .second = bytes[5],
                 .state = StateIn(bytes.substr(HeaderSize)),
                 .history = {}}};
    const Entry& entry = found.entry;
    const auto isIndex = [](int index) { return index >= 0 && index < MaximumPhotoSlots; };
    if (entry.operation > Operation::Unchanged || !isIndex(entry.first) || !isIndex(entry.second))
        ThrowUnreadable(DamagedJournal);
    if (!bytes.starts_with(Magic)) return found;
    try {  // the photos and the descriptions are sound, whatever became of the steps
        found.entry.history = PhotoHistory::Decode(Checked(behind));
    } catch (const Error&) {
        found.historyLost = true;
    }
    return found;
}

/// Nothing when there is no journal: then the state file counts.
std::optional<Found> Read(const std::string& folder, std::int32_t listNum) {
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
    bytes += CheckOf(bytes);
    const std::string history = entry.history.Encode();
    files::WriteWhole(folder + listing_files::JournalName(entry.state.ListNum),
                      bytes + history + CheckOf(history));
}

SavedWork Recover(const std::string& folder, std::int32_t listNum) {
    const std::optional<Found> found = Read(folder, listNum);
    const std::optional<Entry> journal = found ? std::optional(found->entry) : std::nullopt;
    ListingState state =
        journal ? journal->state : state_file::Read(folder + listing_files::StateName(listNum));
    if (state.ListNum != listNum) ThrowUnreadable("it belongs to listing " + std::to_string(state.ListNum));
    const std::int32_t photosBefore = state.PhotoCount;
    const bool unchanged = journal && journal->operation == Operation::Unchanged;
    SavedWork work{.state = Recovery(folder, std::move(state)).Finish(journal)};
    work.changed = !unchanged || work.state.PhotoCount != photosBefore;
    if (journal) work.history = journal->history;
    work.historyLost = found && found->historyLost;
    return work;
}

PhotoHistory HistoryIn(const std::string& folder, std::int32_t listNum) noexcept {
    try {
        if (const auto found = Read(folder, listNum)) return found->entry.history;
    } catch (...) {  // reported when the listing is taken up
    }
    return {};
}

}  // namespace lumarin::photo_journal
