#include <algorithm>
#include <set>

#include "listing/PhotoHistory.h"
#include "listing/StateBytes.h"

// How a history is written into the journal.

namespace lumarin {

namespace {

constexpr std::size_t CheckSize = 4;
/// Far above what a listing comes to: the next one always has room.
constexpr std::uint32_t GreatestId = 0x3FFFFFFF;

[[noreturn]] void Damaged() { ThrowUnreadable("its history is damaged"); }

void Put(StateWriter& writer, std::size_t count) { writer.Unsigned(static_cast<std::uint32_t>(count), 2); }

void Put(StateWriter& writer, const PhotoOrder& order) {
    Put(writer, order.size());
    for (const KnownPhoto& photo : order) {
        writer.Unsigned(photo.id, 4);
        writer.Text(photo.DescCode);
        writer.Text(photo.DescText);
    }
}

std::uint32_t TakeId(StateReader& reader) {
    const std::uint32_t id = reader.Unsigned(4);
    if (id == 0 || id > GreatestId) Damaged();
    return id;
}

std::size_t TakeCount(StateReader& reader, std::size_t most) {
    const std::size_t count = reader.Unsigned(2);
    if (count > most) Damaged();
    return count;
}

PhotoOrder TakeOrder(StateReader& reader) {
    PhotoOrder order(TakeCount(reader, MaximumPhotoSlots));
    std::set<std::uint32_t> ids;
    for (KnownPhoto& photo : order) {
        photo.id = TakeId(reader);
        photo.DescCode = reader.Text();
        photo.DescText = reader.Text();
        if (!ids.insert(photo.id).second) Damaged();
    }
    return order;
}

}  // namespace

std::string PhotoHistory::Encode() const {
    StateWriter writer;
    Put(writer, first_);
    Put(writer, steps_.size());
    Put(writer, done_);
    for (const Step& step : steps_) {
        writer.Unsigned(static_cast<std::uint32_t>(step.kind), 1);
        writer.Unsigned(step.number, 4);
        Put(writer, step.photos.size());
        for (const std::uint32_t id : step.photos) writer.Unsigned(id, 4);
        Put(writer, step.after);
    }
    writer.Unsigned(published_ ? 1 : 0, 1);
    if (published_) Put(writer, *published_);
    Put(writer, kept_.size());
    for (const auto& [id, fingerprint] : kept_) {
        writer.Unsigned(id, 4);
        writer.Unsigned(fingerprint.length, 4);
        for (const char c : fingerprint.check) writer.Unsigned(static_cast<unsigned char>(c), 1);
    }
    return writer.Bytes();
}

PhotoHistory PhotoHistory::Decode(std::string_view bytes) {
    StateReader reader(bytes);
    PhotoHistory history;
    history.first_ = TakeOrder(reader);
    history.steps_.resize(TakeCount(reader, MostSteps));
    history.done_ = TakeCount(reader, history.steps_.size());
    for (Step& step : history.steps_) {
        const std::uint32_t kind = reader.Unsigned(1);
        if (kind > static_cast<std::uint32_t>(StepKind::RemoveListing)) Damaged();
        step.kind = static_cast<StepKind>(kind);
        step.number = reader.Unsigned(4);
        step.photos.resize(TakeCount(reader, MaximumPhotoSlots));
        for (std::uint32_t& id : step.photos) id = TakeId(reader);
        step.after = TakeOrder(reader);
    }
    if (reader.Unsigned(1) != 0) history.published_ = TakeOrder(reader);
    for (std::size_t kept = reader.Unsigned(2); kept > 0; --kept) {
        Fingerprint& fingerprint = history.kept_[TakeId(reader)];
        fingerprint.length = reader.Unsigned(4);
        fingerprint.check.clear();
        for (std::size_t i = 0; i < CheckSize; ++i)
            fingerprint.check += static_cast<char>(reader.Unsigned(1));
    }
    if (!reader.AtEnd()) Damaged();
    return history;
}

}  // namespace lumarin
