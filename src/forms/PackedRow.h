#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lumarin {

/// A row of a list view, laid out for those who fill it.
struct ListRow {
    std::string text;
    std::vector<std::string> subItems{};
    std::string key{};
    std::string tag{};
    /// A picture file that the front end may show small beside the text; "" for none.
    std::string picture{};
    /// Shown while the pointer rests on the row, and read with it by a screen reader; "" for none.
    std::string toolTip{};
    bool strong = false;  ///< its letters are, so that it stands out
};

/// The same row as a list keeps it: all its texts in one allocation. A list may hold a million of them, and
/// as separate texts they would take four times the room, most of it for texts that are empty.
class PackedRow {
public:
    /// A place for a row: it holds none, and must not be read, until one is moved in.
    PackedRow() = default;
    PackedRow(const ListRow& row);  // NOLINT(google-explicit-constructor): a row is a row

    /// Column 0 is the row's text, the others its sub-items; "" for a column that the row does not fill.
    /// Valid as long as the row is.
    std::string_view Cell(int column) const;
    ListRow Unpacked() const;

    /// A mark that goes with the row wherever it is moved; none at first.
    bool IsMarked() const { return (parts_[0] & Marked) != 0; }
    void SetMarked(bool marked) {
        parts_[0] = static_cast<char>((parts_[0] & Strong) | (marked ? Marked : 0));
    }
    bool IsStrong() const { return (parts_[0] & Strong) != 0; }

private:
    static constexpr int Marked = 1, Strong = 2;

    std::unique_ptr<char[]> parts_;
};

}  // namespace lumarin
