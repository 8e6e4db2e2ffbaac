#pragma once

#include "entry/FieldValue.h"
#include "host/database/Database.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The rows that a statement has given so far, packed, so that a million of them cost little more than
/// their texts. Rows and columns count from 0.
class RowStore {
public:
    explicit RowStore(std::unique_ptr<Statement> statement);

    /// Whether there are that many rows. Reads as far as it takes to know; the statement is given up at its
    /// end. Throws lumarin::Error when a row cannot be read, and ends there.
    bool HasAtLeast(std::size_t count) { return count_ >= count || ReadUntil(count); }
    /// The rows that were read.
    std::size_t Count() const { return count_; }
    bool IsComplete() const { return statement_ == nullptr; }

    const std::vector<std::string>& Columns() const { return columns_; }
    /// Of a row that was read.
    lumarin::FieldValue Value(std::size_t row, std::size_t column) const;

    /// Gives rows and statement up.
    void Clear();

private:
    /// A thousand rows, one behind the other: of each cell a mark, and then the bytes of its value.
    struct Block {
        std::vector<std::size_t> rowStarts;
        std::string bytes;
    };

    bool ReadUntil(std::size_t count);
    void AddBlock();
    void ReadRow();

    std::unique_ptr<Statement> statement_;
    std::vector<std::string> columns_;
    std::vector<Block> blocks_;  // what is read is never moved
    std::size_t count_ = 0;
};

}  // namespace host
