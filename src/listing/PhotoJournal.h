#pragma once

#include <cstdint>
#include <string>

#include "listing/ListingState.h"
#include "listing/PhotoHistory.h"

/// Keeps changes that the state file does not hold. The state file is written at load, at the start of
/// each add and during an upload, not by a move, a removal or a finished add; the journal N.jnl holds the
/// state as of the last change, the steps that led to it, and while photo files are being renamed also what
/// is under way. A program killed at any moment is so taken up where it was, and its steps can be undone.
/// Where nothing was changed since the listing was loaded, the journal says so.
namespace lumarin::photo_journal {

enum class Operation : std::uint8_t {
    None = 0,       ///< files and state agree
    Move = 1,       ///< the photo of index `first` waits under its ".tmp" name to become index `second`
    Remove = 2,     ///< the photo of index `first` goes, later ones close up; earlier versions wrote this
    Unchanged = 3,  ///< files and state agree, and are what the server has
};

struct Entry {
    Operation operation = Operation::None;
    int first = 0;
    int second = 0;
    ListingState state;
    PhotoHistory history;  ///< leads to the state
};

void Write(const std::string& folder, const Entry& entry);

/// What an earlier run left of a listing.
struct SavedWork {
    ListingState state;
    bool changed = true;  ///< false only when it is known that nothing was changed since the load
    PhotoHistory history;
    bool historyLost = false;  ///< there was one that cannot be read
};

/// The listing whose files an earlier run left in the folder: finishes or undoes the renaming that was
/// interrupted, and takes in a photo that was captured but not yet counted, which the history does not know
/// then. Throws Error when the journal is damaged, since photos and descriptions may then not belong
/// together, or when there is none and the state file cannot be read.
SavedWork Recover(const std::string& folder, std::int32_t listNum);

/// The steps that the journal holds; none when it cannot be read.
PhotoHistory HistoryIn(const std::string& folder, std::int32_t listNum) noexcept;

}  // namespace lumarin::photo_journal
