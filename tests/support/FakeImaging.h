#pragma once

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/Files.h"
#include "imaging/Imaging.h"

namespace lumarin::testing {

/// An imaging library that knows its pictures by path, keeps every order and writes the beginning of a
/// JPEG for each.
class FakeImaging final : public Imaging {
public:
    struct Source {
        int width = 0, height = 0;
        bool plainJpeg = false;
        int pages = 1;
    };

    /// A JPEG's start, file header, one table and end.
    static std::string SmallJpeg() {
        return std::string(
            "\xFF\xD8\xFF\xE0\x00\x10JFIF\0\x01\x01\0\0\x01\0\x01\0\0\xFF\xDB\x00\x04\x00\x01\xFF\xD9", 28);
    }

    std::map<std::string, Source> pictures;
    std::optional<Error> openFailure, captureFailure;
    std::vector<CaptureOrder> orders;
    PictureTurn turn;    ///< of the last capture
    CaptureOrder shown;  ///< of the last photo that was asked for without being captured
    std::vector<PageOrder> pages;
    std::vector<PictureTurn> pageTurns;  ///< of the same pictures
    /// Bytes of the next captured files and pages, in order; 28 and 100 where none is said.
    std::deque<std::size_t> captureLengths, pageLengths;
    std::deque<PageLook> looks;  ///< of the next pages that are looked at; plain ones when there are no more
    int opened = 0, previews = 0, openNow = 0;

    std::unique_ptr<SourcePicture> Open(const std::string& path) override {
        ++opened;
        if (openFailure) throw Error(*openFailure);
        const bool isPage = !pictures.contains(path) && files::FileExists(path);
        return std::make_unique<Opened>(*this, isPage ? WrittenPage(path) : pictures.at(path));
    }
    std::unique_ptr<SourcePicture> OpenPage(const std::string& path, int) override { return Open(path); }
    std::unique_ptr<SourcePicture> FromMemory(PicturePtr picture) override {
        ++opened;
        return std::make_unique<Opened>(*this, Source{picture->width, picture->height});
    }
    Picture Thumbnail(const std::string&, int) override { return {}; }

private:
    static constexpr int ThumbnailSide = 240;

    /// The file of a page begins with its size.
    static Source WrittenPage(const std::string& path) {
        std::istringstream bytes(files::ReadAll(path));
        Source page;
        bytes >> page.width >> page.height;
        return page;
    }
    void Write(const std::string& path, std::string bytes, std::deque<std::size_t>& lengths,
               bool hasLength = true) const {
        if (captureFailure) throw Error(*captureFailure);
        if (!lengths.empty() && hasLength) {
            bytes.resize(lengths.front(), ' ');
            lengths.pop_front();
        }
        files::WriteWhole(path, bytes);
    }

    class Opened final : public SourcePicture {
    public:
        Opened(FakeImaging& library, Source source) : library_(library), source_(source) {
            ++library_.openNow;
        }
        ~Opened() override { --library_.openNow; }
        int Width() const override { return turn_.quarters % 2 == 0 ? source_.width : source_.height; }
        int Height() const override { return turn_.quarters % 2 == 0 ? source_.height : source_.width; }
        int PageCount() const override { return source_.pages; }
        bool IsPlainJpeg() const override { return source_.plainJpeg; }
        void Turn(const PictureTurn& turn) override { turn_ = turn; }
        PageLook Look() override {
            if (library_.looks.empty()) return {};
            const PageLook look = library_.looks.front();
            library_.looks.pop_front();
            return look;
        }
        Picture Photo(const CaptureOrder& order) override {
            library_.shown = order;
            return {order.canvasWidth, order.canvasHeight,
                    std::vector<std::uint8_t>(std::size_t(order.canvasWidth * order.canvasHeight) * 3)};
        }
        Picture Preview(int width, int height) override {
            ++library_.previews;
            return {width, height, std::vector<std::uint8_t>(std::size_t(width * height) * 3, 100)};
        }
        void Capture(const CaptureOrder& order, const std::string& destination) override {
            library_.Write(destination, SmallJpeg(), library_.captureLengths);
            library_.orders.push_back(order);
            library_.pictures[destination] = {order.canvasWidth, order.canvasHeight};
            library_.turn = turn_;
        }
        void WritePage(const PageOrder& order, const std::string& destination) override {
            std::string bytes = std::to_string(order.width) + " " + std::to_string(order.height) + " ";
            bytes.resize(100, 'i');
            library_.Write(destination, bytes, library_.pageLengths,
                           std::max(order.width, order.height) > ThumbnailSide);
            library_.pages.push_back(order);
            library_.pageTurns.push_back(turn_);
        }

    private:
        FakeImaging& library_;
        Source source_;
        PictureTurn turn_;
    };
};

}  // namespace lumarin::testing
