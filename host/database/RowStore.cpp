#include "host/database/RowStore.h"

namespace host {

namespace {

constexpr std::size_t RowsInBlock = 1024;

}  // namespace

RowStore::RowStore(std::unique_ptr<Statement> statement) : statement_(std::move(statement)) {
    for (int column = 0; column < statement_->ColumnCount(); ++column)
        columns_.push_back(statement_->ColumnName(column));
}

bool RowStore::HasAtLeast(std::size_t count) {
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
    const std::size_t likelyBytes = blocks_.empty() ? 0 : blocks_.back().texts.size() / 16 * 17;
    Block& block = blocks_.emplace_back();
    block.cells.reserve(RowsInBlock * columns_.size());
    block.texts.reserve(likelyBytes);
}

void RowStore::ReadRow() {
    if (count_ % RowsInBlock == 0) AddBlock();
    Block& block = blocks_.back();
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
        const ColumnValue value = statement_->Value(column);
        if (value.kind == ColumnValue::Kind::Text) {
            block.cells.push_back({static_cast<std::int64_t>(block.texts.size()),
                                   static_cast<std::int32_t>(value.text.size())});
            block.texts += value.text;
        } else {
            block.cells.push_back({value.integer, value.kind == ColumnValue::Kind::Null ? Null : Number});
        }
    }
    ++count_;
}

lumarin::FieldValue RowStore::Value(std::size_t row, std::size_t column) const {
    const Block& block = blocks_[row / RowsInBlock];
    const Cell& cell = block.cells[row % RowsInBlock * columns_.size() + column];
    if (cell.length == Null) return {};
    if (cell.length == Number) return lumarin::FieldValue(cell.value);
    return lumarin::FieldValue(
        block.texts.substr(static_cast<std::size_t>(cell.value), static_cast<std::size_t>(cell.length)));
}

void RowStore::Clear() {
    statement_.reset();
    blocks_.clear();
    count_ = 0;
}

}  // namespace host
