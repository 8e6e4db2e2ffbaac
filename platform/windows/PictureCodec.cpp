#include "platform/windows/PictureCodec.h"

#include <windows.h>

#include <wincodec.h>

#include <memory>
#include <new>

#include "imaging/Imaging.h"
#include "platform/windows/WideText.h"

namespace lumarin::windows {

namespace {

// Where only the codec of the compressed pixels is missing.
constexpr auto NoVideoCodec = static_cast<HRESULT>(0xC00D5212);
constexpr const char* MissingCodec =
    "This computer cannot open HEIC photos. Windows needs \"HEIF Image Extensions\" and \"HEVC Video "
    "Extensions\" from the Microsoft Store for them; the photo can also be saved as JPEG on the phone.";

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Release>;

void Check(HRESULT result) {
    if (SUCCEEDED(result)) return;
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    if (result == WINCODEC_ERR_COMPONENTNOTFOUND || result == NoVideoCodec)
        throw ImagingError(MissingCodecError, MissingCodec);
    throw ImagingError(InvalidPictureError, "The selected file is not a valid photo.");
}

/// The object that a call makes through its last argument.
template <class Interface, class Make>
Owned<Interface> Made(Make make) {
    Interface* object = nullptr;
    Check(make(&object));
    return Owned<Interface>(object);
}

/// The thread of a host, or of the desktop, usually has it already; then this changes nothing.
class ComOfThread {
public:
    ComOfThread() : begun_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComOfThread() {
        if (begun_) CoUninitialize();
    }
    ComOfThread(const ComOfThread&) = delete;
    ComOfThread& operator=(const ComOfThread&) = delete;

private:
    bool begun_;
};

Owned<IWICImagingFactory> Factory() {
    return Made<IWICImagingFactory>([](IWICImagingFactory** factory) {
        return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                __uuidof(IWICImagingFactory), reinterpret_cast<void**>(factory));
    });
}

/// The picture in sRGB; as it is when it says nothing about its colours, or the system cannot change them.
Owned<IWICBitmapSource> InScreenColours(IWICImagingFactory& factory, Owned<IWICBitmapFrameDecode> frame) {
    const auto own = Made<IWICColorContext>([&](auto** made) { return factory.CreateColorContext(made); });
    const auto screen = Made<IWICColorContext>([&](auto** made) { return factory.CreateColorContext(made); });
    const auto transform =
        Made<IWICColorTransform>([&](auto** made) { return factory.CreateColorTransformer(made); });
    IWICColorContext* contexts[] = {own.get()};
    UINT count = 0;
    constexpr UINT ScreenColours = 1;  // sRGB, as EXIF numbers it
    const bool changes =
        SUCCEEDED(frame->GetColorContexts(1, contexts, &count)) && count > 0 &&
        SUCCEEDED(screen->InitializeFromExifColorSpace(ScreenColours)) &&
        SUCCEEDED(transform->Initialize(frame.get(), own.get(), screen.get(), GUID_WICPixelFormat24bppBGR));
    if (!changes) return Owned<IWICBitmapSource>(frame.release());
    transform->AddRef();
    return Owned<IWICBitmapSource>(transform.get());
}

Picture PixelsOf(IWICImagingFactory& factory, IWICBitmapSource& source) {
    UINT width = 0, height = 0;
    Check(source.GetSize(&width, &height));
    if (width == 0 || height == 0 || std::int64_t{width} * height > MaximumPixels)
        Check(WINCODEC_ERR_BADIMAGE);
    const auto converter =
        Made<IWICFormatConverter>([&](auto** made) { return factory.CreateFormatConverter(made); });
    Check(converter->Initialize(&source, GUID_WICPixelFormat24bppRGB, WICBitmapDitherTypeNone, nullptr, 0,
                                WICBitmapPaletteTypeCustom));
    Picture picture{static_cast<int>(width), static_cast<int>(height), {}};
    picture.pixels.resize(std::size_t{3} * width * height);
    Check(converter->CopyPixels(nullptr, 3 * width, static_cast<UINT>(picture.pixels.size()),
                                picture.pixels.data()));
    return picture;
}

}  // namespace

PicturePtr DecodeHeic(const std::string& path) {
    const ComOfThread com;
    const auto factory = Factory();
    const auto decoder = Made<IWICBitmapDecoder>([&](IWICBitmapDecoder** made) {
        return factory->CreateDecoderFromFilename(ToWide(path).c_str(), nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnDemand, made);
    });
    auto frame = Made<IWICBitmapFrameDecode>([&](auto** made) { return decoder->GetFrame(0, made); });
    const auto source = InScreenColours(*factory, std::move(frame));
    return std::make_shared<Picture>(PixelsOf(*factory, *source));
}

}  // namespace lumarin::windows
