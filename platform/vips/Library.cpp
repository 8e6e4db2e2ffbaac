#include "platform/vips/Library.h"

#include <optional>
#include <string>

#include "base/PutBack.h"

namespace lumarin::vips {

namespace {

// One thread reads the file, which is most of the work; a second one resamples behind it. More would only
// hold more rows in memory.
constexpr int WorkerThreads = 2;

// All other readers (documents, drawings, scientific data, the catch-all ones) are shut: they would run on
// files from strangers and open things that are not photos.
constexpr const char* Readers[] = {"VipsForeignLoadJpeg", "VipsForeignLoadPng",   "VipsForeignLoadTiff",
                                   "VipsForeignLoadWebp", "VipsForeignLoadNsgif", HeifReader};

// At its start libvips loads all optional modules of its folder; those for documents, slides and the like
// cost more than all the rest. A folder that has none is named to it meanwhile.
bool StartWithoutModules() {
    constexpr const char* Home = "VIPSHOME";
    const char* const set = g_getenv(Home);
    const auto home = set != nullptr ? std::optional<std::string>(set) : std::nullopt;
    const AtEnd restored([&] { home ? g_setenv(Home, home->c_str(), TRUE) : (g_unsetenv(Home), TRUE); });
    g_setenv(Home, "/nowhere", TRUE);
    return vips_init("lumarin") == 0;
}

void Discard(const char*, GLogLevelFlags, const char*, void*) {}

bool Start() {
    g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK), &Discard, nullptr);
    if (!StartWithoutModules()) return false;
    vips_cache_set_max(0);
    vips_concurrency_set(WorkerThreads);
    vips_operation_block_set("VipsForeignLoad", TRUE);
    for (const char* reader : Readers) vips_operation_block_set(reader, FALSE);
    return true;
}

std::string TakeReason() {
    std::string reason = vips_error_buffer();
    vips_error_clear();
    while (!reason.empty() && reason.back() == '\n') reason.pop_back();
    return reason;
}

}  // namespace

void StartLibrary() {
    static const bool started = Start();
    if (!started) throw ImagingError(FirstImagingError, "The imaging library cannot start: " + TakeReason());
}

ImagingError ErrorOf(std::int32_t number) {
    const std::string reason = TakeReason();
    if (reason.find("out of memory") != std::string::npos) return OutOfMemory();
    if (number == InvalidPictureError) return {number, InvalidPictureText};
    return {number, "The photo cannot be written: " + reason};
}

VImage ImageOver(const Picture& picture) {
    VipsImage* image = vips_image_new_from_memory(picture.pixels.data(), picture.pixels.size(), picture.width,
                                                  picture.height, 3, VIPS_FORMAT_UCHAR);
    if (image == nullptr) throw VError();
    return VImage(image).copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

ImagingError OutOfMemory() { return {PictureMemoryError, "There is not enough memory for the photo."}; }

}  // namespace lumarin::vips
