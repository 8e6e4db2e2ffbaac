#include "listing/PhotoHistory.h"

#include <algorithm>

namespace lumarin {

int PlaceOf(const PhotoOrder& order, std::uint32_t id) {
    const auto found = std::ranges::find(order, id, &KnownPhoto::id);
    return found == order.end() ? -1 : static_cast<int>(found - order.begin());
}

void PhotoHistory::Start(const ListingState& state, bool isPublished) {
    *this = {};
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.PhotoCount); ++i)
        first_.push_back(
            {static_cast<std::uint32_t>(i + 1), state.Photos[i].DescCode, state.Photos[i].DescText});
    if (isPublished) published_ = first_;
}

bool PhotoHistory::IsAsPublished() const {
    const auto same = [](const KnownPhoto& left, const KnownPhoto& right) {
        return left.id == right.id && left.DescCode == right.DescCode;
    };
    return published_ && std::ranges::equal(Present(), *published_, same);
}

template <class Visit>
void PhotoHistory::EachOrder(Visit visit) const {
    visit(first_);
    for (const Step& step : steps_) visit(step.after);
}

std::uint32_t PhotoHistory::NewId() const {
    std::uint32_t greatest = 0;
    const auto look = [&](const PhotoOrder& order) {
        for (const KnownPhoto& photo : order) greatest = std::max(greatest, photo.id);
    };
    EachOrder(look);
    if (published_) look(*published_);
    return greatest + 1;
}

bool PhotoHistory::MayComeBack(std::uint32_t id) const {
    bool known = false;
    EachOrder([&](const PhotoOrder& order) { known = known || PlaceOf(order, id) >= 0; });
    return known && PlaceOf(Present(), id) < 0;
}

void PhotoHistory::Note(StepKind kind, std::uint32_t number, std::vector<std::uint32_t> photos,
                        PhotoOrder after) {
    steps_.resize(done_);
    steps_.push_back({kind, number, std::move(photos), std::move(after)});
    ++done_;
    if (steps_.size() > MostSteps) DropOldest();
    TidyFingerprints();
}

void PhotoHistory::DropOldest() {
    first_ = std::move(steps_.front().after);
    steps_.erase(steps_.begin());
    --done_;
}

void PhotoHistory::TidyFingerprints() {
    std::erase_if(kept_, [this](const auto& kept) { return !MayComeBack(kept.first); });
}

StepName PhotoHistory::NameOf(std::size_t step) const {
    const Step& named = steps_[step];
    const PhotoOrder& order = named.kind == StepKind::Add ? named.after : Before(step);
    StepName name{named.kind, static_cast<int>(named.photos.size()), static_cast<int>(order.size()),
                  named.number};
    for (const std::uint32_t id : named.photos)
        if (const int place = PlaceOf(order, id); place >= 0) name.first = std::min(name.first, place);
    return name;
}

std::optional<StepName> PhotoHistory::NextUndo() const {
    return done_ > 0 ? std::optional(NameOf(done_ - 1)) : std::nullopt;
}

std::optional<StepName> PhotoHistory::NextRedo() const {
    return done_ < steps_.size() ? std::optional(NameOf(done_)) : std::nullopt;
}

std::vector<std::uint32_t> PhotoHistory::Undo() { return steps_[--done_].photos; }

std::vector<std::uint32_t> PhotoHistory::Redo() { return steps_[done_++].photos; }

std::uint32_t PhotoHistory::LatestNumber() const {
    std::uint32_t latest = 0;
    for (const Step& step : steps_) latest = std::max(latest, step.number);
    return latest;
}

std::optional<PhotoHistory::Fingerprint> PhotoHistory::FingerprintOf(std::uint32_t id) const {
    const auto found = kept_.find(id);
    return found == kept_.end() ? std::nullopt : std::optional(found->second);
}

void PhotoHistory::Forget(const std::vector<std::uint32_t>& photos) {
    const auto isLost = [&](std::uint32_t id) { return std::ranges::find(photos, id) != photos.end(); };
    const auto clean = [&](PhotoOrder& order) {
        std::erase_if(order, [&](const KnownPhoto& photo) { return isLost(photo.id); });
    };
    clean(first_);
    for (std::size_t i = 0; i < steps_.size();) {
        Step& step = steps_[i];
        clean(step.after);
        std::erase_if(step.photos, isLost);
        if (!step.photos.empty() || step.kind == StepKind::RemoveListing) {
            ++i;
            continue;
        }
        steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(i));  // nothing is left of it
        if (i < done_) --done_;
    }
    TidyFingerprints();
}

}  // namespace lumarin
