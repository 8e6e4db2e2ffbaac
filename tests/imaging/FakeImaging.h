#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
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
    };

    /// A JPEG's start, file header, one table and end.
    static std::string SmallJpeg() {
        return std::string(
            "\xFF\xD8\xFF\xE0\x00\x10JFIF\0\x01\x01\0\0\x01\0\x01\0\0\xFF\xDB\x00\x04\x00\x01\xFF\xD9", 28);
    }

    std::map<std::string, Source> pictures;
    std::optional<Error> openFailure, captureFailure;
    std::vector<CaptureOrder> orders;
    std::vector<PageOrder> pages;
    std::deque<std::size_t>
        pageLengths;  ///< bytes of the next pages' files, in order; 100 where none is said
    std::deque<std::size_t> captureLengths;  ///< bytes of the next captured files, in order
    int opened = 0, previews = 0, openNow = 0;

    std::unique_ptr<SourcePicture> Open(const std::string& path) override {
        ++opened;
        if (openFailure) throw *openFailure;
        return std::make_unique<Opened>(*this, pictures.at(path));
    }
    std::unique_ptr<SourcePicture> FromMemory(PicturePtr picture) override {
        ++opened;
        return std::make_unique<Opened>(*this, Source{picture->width, picture->height});
    }
    Picture Thumbnail(const std::string&, int) override { return {}; }

private:
    class Opened final : public SourcePicture {
    public:
        Opened(FakeImaging& library, Source source) : library_(library), source_(source) {
            ++library_.openNow;
        }
        ~Opened() override { --library_.openNow; }
        int Width() const override { return source_.width; }
        int Height() const override { return source_.height; }
        bool IsPlainJpeg() const override { return source_.plainJpeg; }
        Picture Preview(int width, int height) override {
            ++library_.previews;
            return {width, height,
                    std::vector<std::uint8_t>(static_cast<std::size_t>(width) * height * 3, 100)};
        }
        void Capture(const CaptureOrder& order, const std::string& destination) override {
            if (library_.captureFailure) throw *library_.captureFailure;
            library_.orders.push_back(order);
            std::string bytes = SmallJpeg();
            if (!library_.captureLengths.empty()) {
                bytes.resize(library_.captureLengths.front(), ' ');
                library_.captureLengths.pop_front();
            }
            files::WriteWhole(destination, bytes);
        }
        void WritePage(const PageOrder& order, const std::string& destination) override {
            if (library_.captureFailure) throw *library_.captureFailure;
            library_.pages.push_back(order);
            std::size_t length = 100;
            if (!library_.pageLengths.empty()) {
                length = library_.pageLengths.front();
                library_.pageLengths.pop_front();
            }
            files::WriteWhole(destination, std::string(length, 'i'));
        }

    private:
        FakeImaging& library_;
        Source source_;
    };
};

}  // namespace lumarin::testing
