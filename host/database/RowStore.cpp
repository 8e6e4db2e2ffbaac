#include "host/database/RowStore.h"

#include <cstring>

namespace host {

namespace {

constexpr std::size_t RowsInBlock = 1024;

// A cell's mark: the length of a short text, or one of these.
constexpr unsigned char Null = 255;
constexpr unsigned char Number = 254;       // in eight bytes
constexpr unsigned char SmallNumber = 253;  // in four
constexpr unsigned char LongText = 252;     // its length in four bytes, and the text

void Append(std::string& bytes, unsigned char mark) { bytes += static_cast<char>(mark); }

template <class Integer>
void Append(std::string& bytes, unsigned char mark, Integer number) {
    char cell[1 + sizeof number];
    cell[0] = static_cast<char>(mark);
    std::memcpy(cell + 1, &number, sizeof number);
    bytes.append(cell, sizeof cell);
}

void Append(std::string& bytes, const ColumnValue& value) {
    if (value.kind == ColumnValue::Kind::Null) return Append(bytes, Null);
    if (value.kind == ColumnValue::Kind::Integer) {
        const auto small = static_cast<std::int32_t>(value.integer);
        return small == value.integer ? Append(bytes, SmallNumber, small)
                                      : Append(bytes, Number, value.integer);
    }
    if (value.text.size() < LongText)
        Append(bytes, static_cast<unsigned char>(value.text.size()));
    else
        Append(bytes, LongText, static_cast<std::uint32_t>(value.text.size()));
    bytes += value.text;
}

template <class Integer>
Integer NumberAt(const char* bytes) {
    Integer number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

/// The bytes behind a mark.
std::size_t LengthOf(const char* cell) {
    const auto mark = static_cast<unsigned char>(*cell);
    switch (mark) {
        case Null:
            return 0;
        case Number:
            return sizeof(std::int64_t);
        case SmallNumber:
            return sizeof(std::int32_t);
        case LongText:
            return sizeof(std::uint32_t) + NumberAt<std::uint32_t>(cell + 1);
        default:
            return mark;
    }
}

}  // namespace

RowStore::RowStore(std::unique_ptr<Statement> statement) : statement_(std::move(statement)) {
    for (int column = 0; column < statement_->ColumnCount(); ++column)
        columns_.push_back(statement_->ColumnName(column));
}

bool RowStore::ReadUntil(std::size_t count) {
    while (count_ < count && statement_ != nullptr) {
        try {
            if (statement_->Step())
                ReadRow();
            else
                statement_.reset();
        } catch (...) {
            statement_.reset();
            throw;
        }
    }
    return count_ >= count;
}

void RowStore::AddBlock() {
    const std::size_t likelyBytes = blocks_.empty() ? 0 : blocks_.back().bytes.size() / 16 * 17;
    Block& block = blocks_.emplace_back();
    block.rowStarts.reserve(RowsInBlock);
    block.bytes.reserve(likelyBytes);
}

void RowStore::ReadRow() {
    if (count_ % RowsInBlock == 0) AddBlock();
    Block& block = blocks_.back();
    block.rowStarts.push_back(block.bytes.size());
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column)
        Append(block.bytes, statement_->Value(column));
    ++count_;
}

lumarin::FieldValue RowStore::Value(std::size_t row, std::size_t column) const {
    const Block& block = blocks_[row / RowsInBlock];
    const char* cell = block.bytes.data() + block.rowStarts[row % RowsInBlock];
    for (; column > 0; --column) cell += 1 + LengthOf(cell);
    const auto mark = static_cast<unsigned char>(*cell++);
    switch (mark) {
        case Null:
            return {};
        case Number:
            return lumarin::FieldValue(NumberAt<std::int64_t>(cell));
        case SmallNumber:
            return lumarin::FieldValue(std::int64_t{NumberAt<std::int32_t>(cell)});
        case LongText:
            return lumarin::FieldValue(
                std::string(cell + sizeof(std::uint32_t), NumberAt<std::uint32_t>(cell)));
        default:
            return lumarin::FieldValue(std::string(cell, mark));
    }
}

void RowStore::Clear() {
    statement_.reset();
    blocks_.clear();
    count_ = 0;
}

}  // namespace host
