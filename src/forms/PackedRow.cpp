#include "forms/PackedRow.h"

#include <cstdint>
#include <cstring>

namespace lumarin {

namespace {

// A length is one byte, or this value and four bytes. The row is its marks, the number of its sub-items, and
// then text, sub-items, key, tag, picture and tool tip, each behind its length.
constexpr std::size_t MarkBytes = 1;
constexpr unsigned char LongLength = 255;

std::size_t BytesFor(std::size_t length) { return length < LongLength ? 1 : 1 + sizeof(std::uint32_t); }

std::size_t BytesFor(const std::string& part) { return BytesFor(part.size()) + part.size(); }

class Writer {
public:
    explicit Writer(char* to) : to_(to) {}

    void Length(std::size_t length) {
        if (length < LongLength) {
            *to_++ = static_cast<char>(length);
            return;
        }
        *to_++ = static_cast<char>(LongLength);
        const auto wide = static_cast<std::uint32_t>(length);
        std::memcpy(to_, &wide, sizeof wide);
        to_ += sizeof wide;
    }
    void Part(const std::string& part) {
        Length(part.size());
        std::memcpy(to_, part.data(), part.size());
        to_ += part.size();
    }

private:
    char* to_;
};

class Reader {
public:
    explicit Reader(const char* from) : from_(from) {}

    std::size_t Length() {
        const auto length = static_cast<unsigned char>(*from_++);
        if (length < LongLength) return length;
        std::uint32_t wide = 0;
        std::memcpy(&wide, from_, sizeof wide);
        from_ += sizeof wide;
        return wide;
    }
    std::string_view Part() {
        const std::size_t length = Length();
        const std::string_view part(from_, length);
        from_ += length;
        return part;
    }

private:
    const char* from_;
};

}  // namespace

PackedRow::PackedRow(const ListRow& row) {
    std::size_t bytes = MarkBytes + BytesFor(row.subItems.size()) + BytesFor(row.text) + BytesFor(row.key) +
                        BytesFor(row.tag) + BytesFor(row.picture) + BytesFor(row.toolTip);
    for (const std::string& subItem : row.subItems) bytes += BytesFor(subItem);
    parts_ = std::make_unique_for_overwrite<char[]>(bytes);

    parts_[0] = row.strong ? Strong : 0;
    Writer writer(parts_.get() + MarkBytes);
    writer.Length(row.subItems.size());
    writer.Part(row.text);
    for (const std::string& subItem : row.subItems) writer.Part(subItem);
    for (const std::string* part : {&row.key, &row.tag, &row.picture, &row.toolTip}) writer.Part(*part);
}

std::string_view PackedRow::Cell(int column) const {
    Reader reader(parts_.get() + MarkBytes);
    if (column < 0 || static_cast<std::size_t>(column) > reader.Length()) return {};
    for (; column > 0; --column) reader.Part();
    return reader.Part();
}

ListRow PackedRow::Unpacked() const {
    Reader reader(parts_.get() + MarkBytes);
    ListRow row;
    row.subItems.resize(reader.Length());
    row.text = reader.Part();
    for (std::string& subItem : row.subItems) subItem = reader.Part();
    for (std::string* part : {&row.key, &row.tag, &row.picture, &row.toolTip}) *part = reader.Part();
    row.strong = IsStrong();
    return row;
}

}  // namespace lumarin
