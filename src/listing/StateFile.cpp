#include "listing/StateFile.h"

#include "base/Files.h"
#include "listing/StateBytes.h"

namespace lumarin::state_file {

namespace {

ListingState DecodeFrom(StateReader& reader) {
    ListingState state;
    state.ListNum = reader.Integer();
    if (state.ListNum <= 0) ThrowUnreadable("its listing number is " + std::to_string(state.ListNum));
    state.PhotoCount = reader.Integer();
    if (state.PhotoCount < 0 || state.PhotoCount > MaximumPhotoSlots)
        ThrowUnreadable("its number of photos is " + std::to_string(state.PhotoCount));
    state.StreetNumber = reader.Text();
    state.StreetDirection = reader.Text();
    state.StreetName = reader.Text();
    for (PhotoEntry& photo : state.Photos) {
        photo.DescCode = reader.Text();
        photo.DescText = reader.Text();
        photo.SentLetter = reader.Text();
    }
    return state;
}

/// What the file holds behind a structure of this size; an unreadable file holds nothing that counts.
std::string Behind(const std::string& path, std::size_t size) {
    if (!files::FileExists(path)) return {};
    const std::string old = files::ReadAll(path);
    return old.size() > size ? old.substr(size) : std::string();
}

}  // namespace

std::string Encode(const ListingState& state) {
    StateWriter writer;
    writer.Integer(state.ListNum);
    writer.Integer(state.PhotoCount);
    writer.Text(state.StreetNumber);
    writer.Text(state.StreetDirection);
    writer.Text(state.StreetName);
    for (const PhotoEntry& photo : state.Photos) {
        writer.Text(photo.DescCode);
        writer.Text(photo.DescText);
        writer.Text(photo.SentLetter);
    }
    return writer.Bytes();
}

ListingState Decode(std::string_view bytes) {
    StateReader reader(bytes);
    return DecodeFrom(reader);
}

std::size_t EncodedSize(std::string_view bytes) {
    StateReader reader(bytes);
    DecodeFrom(reader);
    return reader.Position();
}

void Write(const std::string& path, const ListingState& state) {
    const std::string bytes = Encode(state);
    files::WriteWhole(path, bytes + Behind(path, bytes.size()));
}

ListingState Read(const std::string& path) { return Decode(files::ReadAll(path)); }

}  // namespace lumarin::state_file
