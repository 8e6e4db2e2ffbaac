#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumarin::vips {

/// How many pixels of a part of a page have which brightness.
class Shades {
public:
    static constexpr int Bins = 64;
    static constexpr int ValuesOfBin = 256 / Bins;

    void Add(std::uint8_t value) { ++counts_[value / ValuesOfBin]; }
    void Add(const Shades& others);
    std::uint32_t Count() const;

    /// The brightness that so large a share of the pixels does not reach.
    float Quantile(float share) const;
    /// On white paper: whether many of them lie between ink and paper, and not just in two places. A photo
    /// has many shades; a tinted box has one, and what is printed on it another.
    bool AreOfPhoto(std::uint32_t pixels) const;

private:
    std::array<std::uint32_t, Bins> counts_{};
};

}  // namespace lumarin::vips
