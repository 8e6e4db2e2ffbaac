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
    bool HasAtLeast(std::size_t count);
    /// The rows that were read.
    std::size_t Count() const { return count_; }
    bool IsComplete() const { return statement_ == nullptr; }

    const std::vector<std::string>& Columns() const { return columns_; }
    /// Of a row that was read.
    lumarin::FieldValue Value(std::size_t row, std::size_t column) const;

    /// Gives rows and statement up.
    void Clear();

private:
    static constexpr std::int32_t Null = -1;
    static constexpr std::int32_t Number = -2;

    struct Cell {
        std::int64_t value;   ///< the number, or where the text starts in its block
        std::int32_t length;  ///< of the text, or one of the marks above
    };
    struct Block {
        std::vector<Cell> cells;
        std::string texts;
    };

    void AddBlock();
    void ReadRow();

    std::unique_ptr<Statement> statement_;
    std::vector<std::string> columns_;
    std::vector<Block> blocks_;  // what is read is never moved
    std::size_t count_ = 0;
};

}  // namespace host
