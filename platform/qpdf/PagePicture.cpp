#include "platform/qpdf/PagePicture.h"

#include <bitset>
#include <cstdint>
#include <cstring>
#include <exception>
#include <memory>
#include <utility>

#include "base/Files.h"
#include "platform/qpdf/Group4.h"
#include "platform/qpdf/PngFile.h"

namespace lumarin::qpdf {

/// Packed bytes that wait for the document to be written.
class PictureMaker::WaitingData final : public QPDFObjectHandle::StreamDataProvider {
public:
    explicit WaitingData(std::string bytes) : bytes_(std::move(bytes)) {}

    void provideStreamData(const QPDFObjGen&, Pipeline* pipeline) override {
        pipeline->write(reinterpret_cast<const unsigned char*>(bytes_.data()), bytes_.size());
        pipeline->finish();
    }
    void Release() { std::string().swap(bytes_); }

private:
    std::string bytes_;
};

namespace {

// Two besides the caller: waiting pixels take memory, a megabyte per page.
constexpr std::size_t MostPackings = 2;

/// Whether packing for fax can be smaller at all: it spends a bit or more on each change between black and
/// white. Photos made of dots have so many of them that packing would take long only to be given up.
bool IsWorthPacking(const std::string& rows, std::size_t packedSize) {
    // Within each of eight bytes; those from one byte to the next are few.
    constexpr std::uint64_t PairsOfBytes = 0x7F7F7F7F7F7F7F7F;
    std::uint64_t changes = 0, bits = 0;
    for (std::size_t at = 0; at + sizeof bits <= rows.size(); at += sizeof bits) {
        std::memcpy(&bits, rows.data() + at, sizeof bits);
        if (bits != 0 && ~bits != 0) changes += std::bitset<64>((bits ^ bits >> 1) & PairsOfBytes).count();
    }
    return changes / 8 < packedSize;
}

std::string TryPacking(std::string rows, std::uint32_t width, std::uint32_t height) {
    try {
        return PackGroup4(std::move(rows), width, height);
    } catch (const std::exception&) {
        return "";  // the pixels of the file do as well
    }
}

QPDFObjectHandle ColourSpace(const PngFile& png) {
    switch (png.colours) {
        case PngColours::Grey:
            return QPDFObjectHandle::newName("/DeviceGray");
        case PngColours::Rgb:
            return QPDFObjectHandle::newName("/DeviceRGB");
        case PngColours::Indexed:
            break;
    }
    const auto colours = static_cast<long long>(png.palette.size() / 3);
    return QPDFObjectHandle::newArray(
        {QPDFObjectHandle::newName("/Indexed"), QPDFObjectHandle::newName("/DeviceRGB"),
         QPDFObjectHandle::newInteger(colours - 1), QPDFObjectHandle::newString(png.palette)});
}

PngFile ReadPngFile(const std::string& path) {
    files::Reader file(path);
    return ReadPng(file.Read(static_cast<std::size_t>(file.Length())));
}

}  // namespace

QPDFObjectHandle PictureMaker::Make(QPDF& pdf, const std::string& pngPath) {
    PngFile png = ReadPngFile(pngPath);
    std::string rows;
    if (png.bitDepth == 1) rows = UnpackRows(png);
    const bool isPacked = !rows.empty() && IsWorthPacking(rows, png.data.size());
    if (packings_.size() >= MostPackings) FinishOldest();

    QPDFObjectHandle picture = QPDFObjectHandle::newStream(&pdf);
    QPDFObjectHandle properties = picture.getDict();
    properties.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    properties.replaceKey("/Subtype", QPDFObjectHandle::newName("/Image"));
    properties.replaceKey("/Width", QPDFObjectHandle::newInteger(png.width));
    properties.replaceKey("/Height", QPDFObjectHandle::newInteger(png.height));
    properties.replaceKey("/ColorSpace", ColourSpace(png));
    properties.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(png.bitDepth));
    if (!isPacked) {
        SetDataOfFile(picture, png);
        return picture;
    }
    auto fax = std::async(std::launch::async, &TryPacking, std::move(rows), png.width, png.height);
    packings_.push_back({picture, std::move(png), std::move(fax)});
    return picture;
}

void PictureMaker::SetData(QPDFObjectHandle& picture, std::string bytes, const char* filter,
                           const std::string& parameters) {
    waiting_.push_back(std::make_shared<WaitingData>(std::move(bytes)));
    picture.replaceStreamData(waiting_.back(), QPDFObjectHandle::newName(filter),
                              QPDFObjectHandle::parse(parameters));
}

void PictureMaker::SetDataOfFile(QPDFObjectHandle& picture, PngFile& png) {
    const int colours = png.colours == PngColours::Rgb ? 3 : 1;
    SetData(picture, std::move(png.data), "/FlateDecode",
            "<< /Predictor 15 /Colors " + std::to_string(colours) + " /BitsPerComponent " +
                std::to_string(png.bitDepth) + " /Columns " + std::to_string(png.width) + " >>");
}

void PictureMaker::Forget() {
    for (const auto& data : waiting_) data->Release();
    waiting_.clear();
}

void PictureMaker::Finish() {
    while (!packings_.empty()) FinishOldest();
}

void PictureMaker::FinishOldest() {
    Packing packed = std::move(packings_.front());
    packings_.pop_front();
    std::string fax = packed.fax.get();
    if (fax.empty() || fax.size() >= packed.png.data.size())
        SetDataOfFile(packed.picture, packed.png);
    else
        SetData(packed.picture, std::move(fax), "/CCITTFaxDecode",
                "<< /K -1 /Columns " + std::to_string(packed.png.width) + " /Rows " +
                    std::to_string(packed.png.height) + " >>");
}

}  // namespace lumarin::qpdf
