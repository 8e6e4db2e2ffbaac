#include "listing/StateFile.h"

#include <algorithm>
#include <cstdint>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"

namespace lumarin::state_file {

namespace {

constexpr std::size_t LongestText = 0xFFFF;

[[noreturn]] void Damaged(const std::string& reason) {
    throw Error(ApplicationErrorNumber, "state file",
                "The saved state of a listing cannot be read: " + reason);
}

class Writer {
public:
    void Integer(std::int32_t value) { LittleEndian(static_cast<std::uint32_t>(value), 4); }
    void Text(const std::string& utf8) {
        const std::string encoded = text::ToCodePage(utf8).substr(0, LongestText);
        LittleEndian(static_cast<std::uint32_t>(encoded.size()), 2);
        bytes_ += encoded;
    }
    std::string Bytes() { return std::move(bytes_); }

private:
    void LittleEndian(std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i) bytes_ += static_cast<char>((value >> (8 * i)) & 0xFF);
    }
    std::string bytes_;
};

class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    std::int32_t Integer() { return static_cast<std::int32_t>(LittleEndian(4)); }
    std::string Text() { return text::FromCodePage(Take(LittleEndian(2))); }
    std::size_t Position() const { return at_; }

private:
    std::string_view Take(std::size_t count) {
        if (count > bytes_.size() - at_) Damaged("it is cut short at byte " + std::to_string(bytes_.size()));
        const std::string_view taken = bytes_.substr(at_, count);
        at_ += count;
        return taken;
    }
    std::uint32_t LittleEndian(int count) {
        std::uint32_t value = 0;
        int shift = 0;
        for (const char c : Take(static_cast<std::size_t>(count))) {
            value |= static_cast<std::uint32_t>(static_cast<unsigned char>(c)) << shift;
            shift += 8;
        }
        return value;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
};

ListingState DecodeFrom(Reader& reader) {
    ListingState state;
    state.ListNum = reader.Integer();
    if (state.ListNum <= 0) Damaged("its listing number is " + std::to_string(state.ListNum));
    state.PhotoCount = reader.Integer();
    if (state.PhotoCount < 0 || state.PhotoCount > MaximumPhotoSlots)
        Damaged("its number of photos is " + std::to_string(state.PhotoCount));
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
    Writer writer;
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
    Reader reader(bytes);
    return DecodeFrom(reader);
}

std::size_t EncodedSize(std::string_view bytes) {
    Reader reader(bytes);
    DecodeFrom(reader);
    return reader.Position();
}

void Write(const std::string& path, const ListingState& state) {
    const std::string bytes = Encode(state);
    files::WriteWhole(path, bytes + Behind(path, bytes.size()));
}

ListingState Read(const std::string& path) { return Decode(files::ReadAll(path)); }

}  // namespace lumarin::state_file
