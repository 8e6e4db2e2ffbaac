#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "imaging/Imaging.h"
#include "platform/vips/StoredPicture.h"

namespace lumarin::vips {

/// A stored picture whose orientation says that it lies a number of quarters further round.
class TurnedPicture final : public StoredPicture {
public:
    explicit TurnedPicture(std::unique_ptr<StoredPicture> stored) : stored_(std::move(stored)) {}

    /// Quarters clockwise, from 0 to 3.
    void Turn(int quarters) { quarters_ = quarters; }

    int Width() const override { return stored_->Width(); }
    int Height() const override { return stored_->Height(); }
    int Orientation() const override;
    int PageCount() const override { return stored_->PageCount(); }
    bool IsPlainJpeg() const override { return quarters_ == 0 && stored_->IsPlainJpeg(); }
    Decoded Decode(double reduction) const override { return stored_->Decode(reduction); }

private:
    std::unique_ptr<StoredPicture> stored_;
    int quarters_ = 0;
};

/// A picture's size after a turn that leaves it its edges, as shares of the size before, and what its empty
/// corners are filled with.
struct PaperEdges {
    double width = 1;
    double height = 1;
    std::vector<double> colour;  ///< red, green and blue
};

/// A turn by some degrees about the middle of the upright picture. Unless it is told what becomes of the
/// edges, it leaves the largest part of the picture's proportions that has no empty corners.
class Straightening {
public:
    explicit Straightening(double degrees = 0, std::optional<PaperEdges> edges = std::nullopt);

    bool IsPlain() const { return degrees_ == 0; }
    int WidthOf(const StoredPicture& picture) const;
    int HeightOf(const StoredPicture& picture) const;

    /// As `vips::Render`, of what is left of the picture.
    Picture Render(const StoredPicture& picture, const PixelRect& cut, int width, int height) const;

private:
    struct Point {
        double x = 0;
        double y = 0;
    };
    double ShareLeft(const StoredPicture& picture) const;
    Point BeforeTurn(const StoredPicture& picture, Point turned) const;
    PixelRect Around(const StoredPicture& picture, const PixelRect& cut) const;

    double degrees_ = 0;
    std::optional<PaperEdges> edges_;
    double cosine_ = 1;
    double sine_ = 0;
};

}  // namespace lumarin::vips
