#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "listing/ListingState.h"

namespace lumarin {

/// A photo of a listing, known by a number of its own whatever its place is and as long as it can come back.
struct KnownPhoto {
    std::uint32_t id = 0;
    std::string DescCode;
    std::string DescText;
    bool operator==(const KnownPhoto&) const = default;
};

/// The photos of a listing in their order.
using PhotoOrder = std::vector<KnownPhoto>;

enum class StepKind : std::uint8_t { Add, Delete, Move, Describe, RemoveListing };

/// What a person is told about a step.
struct StepName {
    StepKind kind = StepKind::Add;
    int photos = 0;  ///< how many it was done to
    int first = 0;   ///< the place of the first of them, from 0; after the step for Add, else before it
    std::uint32_t number = 0;  ///< steps done later have a greater one, whichever listing they were done to
};

/// What was done to the photos of one listing, for undo and redo: the orders that its photos had. It knows
/// nothing of files.
class PhotoHistory {
public:
    /// When more steps are noted the oldest ones can no longer be undone.
    static constexpr std::size_t MostSteps = 100;

    /// By which the file of a photo that can come back is known again.
    struct Fingerprint {
        std::uint32_t length = 0;
        std::string check;  ///< four bytes
        bool operator==(const Fingerprint&) const = default;
    };

    /// Forgets everything; the photos are as the server has them, or nobody knows whether they are.
    void Start(const ListingState& state, bool isPublished);
    /// Nothing was done, and nothing is known.
    bool Empty() const { return first_.empty() && steps_.empty() && !published_; }

    const PhotoOrder& Present() const { return done_ == 0 ? first_ : steps_[done_ - 1].after; }
    /// Whether the photos, their order and their descriptions are what the server has.
    bool IsAsPublished() const;
    /// A number that no photo has had as far as is known.
    std::uint32_t NewId() const;
    /// Whether a photo that is not among the present ones can come back.
    bool MayComeBack(std::uint32_t id) const;

    /// A step that leads to `after`; those that were undone are forgotten. `photos`: what it is done to.
    void Note(StepKind kind, std::uint32_t number, std::vector<std::uint32_t> photos, PhotoOrder after);

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    int DoneSteps() const { return static_cast<int>(done_); }
    std::optional<StepName> NextUndo() const;
    std::optional<StepName> NextRedo() const;
    /// Returns the photos that the step was done to. There must be such a step.
    std::vector<std::uint32_t> Undo();
    std::vector<std::uint32_t> Redo();

    /// The greatest number of a step; 0 when there is none.
    std::uint32_t LatestNumber() const;

    void SetFingerprint(std::uint32_t id, const Fingerprint& fingerprint) { kept_[id] = fingerprint; }
    /// Nothing for a photo whose file was not there when it went.
    std::optional<Fingerprint> FingerprintOf(std::uint32_t id) const;
    /// Photos whose files are lost come back with no step any more.
    void Forget(const std::vector<std::uint32_t>& photos);

    std::string Encode() const;
    /// Throws Error for bytes that are not what `Encode` gives.
    static PhotoHistory Decode(std::string_view bytes);

    bool operator==(const PhotoHistory&) const = default;

private:
    struct Step {
        StepKind kind = StepKind::Add;
        std::uint32_t number = 0;
        std::vector<std::uint32_t> photos;
        PhotoOrder after;
        bool operator==(const Step&) const = default;
    };

    const PhotoOrder& Before(std::size_t step) const { return step == 0 ? first_ : steps_[step - 1].after; }
    StepName NameOf(std::size_t step) const;
    template <class Visit>
    void EachOrder(Visit visit) const;
    void DropOldest();
    void TidyFingerprints();

    PhotoOrder first_;  ///< before all steps
    std::vector<Step> steps_;
    std::size_t done_ = 0;  ///< those behind it were undone
    std::optional<PhotoOrder> published_;
    std::map<std::uint32_t, Fingerprint> kept_;
};

/// Where a photo stands; -1 when it is not there.
int PlaceOf(const PhotoOrder& order, std::uint32_t id);

}  // namespace lumarin
