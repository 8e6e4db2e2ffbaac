#include "platform/qpdf/PagePicture.h"

#include <memory>
#include <utility>

#include "base/Files.h"
#include "platform/qpdf/Group4.h"
#include "platform/qpdf/PngFile.h"

namespace lumarin::qpdf {

namespace {

/// Bytes that wait for the document to be written, packed already.
class WaitingData final : public QPDFObjectHandle::StreamDataProvider {
public:
    explicit WaitingData(std::string bytes) : bytes_(std::move(bytes)) {}

    void provideStreamData(const QPDFObjGen&, Pipeline* pipeline) override {
        pipeline->write(reinterpret_cast<const unsigned char*>(bytes_.data()), bytes_.size());
        pipeline->finish();
    }

private:
    std::string bytes_;
};

struct PackedData {
    std::string bytes;
    std::string filter;
    std::string parameters;  ///< as the document writes them
};

PackedData AsInFile(PngFile& png) {
    return {std::move(png.data), "/FlateDecode",
            "<< /Predictor 15 /Colors " + std::to_string(png.colors == PngColors::Rgb ? 3 : 1) +
                " /BitsPerComponent " + std::to_string(png.bitDepth) + " /Columns " +
                std::to_string(png.width) + " >>"};
}

PackedData Smallest(PngFile& png) {
    if (png.bitDepth != 1) return AsInFile(png);
    std::string fax = PackGroup4(UnpackRows(png), png.width, png.height);
    if (fax.size() >= png.data.size()) return AsInFile(png);
    return {
        std::move(fax), "/CCITTFaxDecode",
        "<< /K -1 /Columns " + std::to_string(png.width) + " /Rows " + std::to_string(png.height) + " >>"};
}

QPDFObjectHandle ColorSpace(const PngFile& png) {
    switch (png.colors) {
        case PngColors::Gray:
            return QPDFObjectHandle::newName("/DeviceGray");
        case PngColors::Rgb:
            return QPDFObjectHandle::newName("/DeviceRGB");
        case PngColors::Indexed:
            break;
    }
    const auto colors = static_cast<long long>(png.palette.size() / 3);
    return QPDFObjectHandle::newArray(
        {QPDFObjectHandle::newName("/Indexed"), QPDFObjectHandle::newName("/DeviceRGB"),
         QPDFObjectHandle::newInteger(colors - 1), QPDFObjectHandle::newString(png.palette)});
}

PngFile ReadPngFile(const std::string& path) {
    files::Reader file(path);
    return ReadPng(file.Read(static_cast<std::size_t>(file.Length())));
}

}  // namespace

QPDFObjectHandle MakePicture(QPDF& pdf, const std::string& pngPath) {
    PngFile png = ReadPngFile(pngPath);
    PackedData packed = Smallest(png);
    QPDFObjectHandle picture = QPDFObjectHandle::newStream(&pdf);
    QPDFObjectHandle properties = picture.getDict();
    properties.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    properties.replaceKey("/Subtype", QPDFObjectHandle::newName("/Image"));
    properties.replaceKey("/Width", QPDFObjectHandle::newInteger(png.width));
    properties.replaceKey("/Height", QPDFObjectHandle::newInteger(png.height));
    properties.replaceKey("/ColorSpace", ColorSpace(png));
    properties.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(png.bitDepth));
    picture.replaceStreamData(std::make_shared<WaitingData>(std::move(packed.bytes)),
                              QPDFObjectHandle::newName(packed.filter),
                              QPDFObjectHandle::parse(packed.parameters));
    return picture;
}

}  // namespace lumarin::qpdf
