#include "photo_window/WindowSettings.h"

#include <algorithm>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "entry/Settings.h"
#include "listing/ListingState.h"

namespace lumarin {

namespace {

constexpr const char* OwnSection = "Lumarin";
constexpr const char* PhotosSection = "Photos";
constexpr const char* PositionKey = "Start Up Position";
constexpr const char* ImportKey = "Default Import Dir";
constexpr const char* PhotoViewKey = "Photo List";
constexpr const char* DefaultPosition = "1,100";

std::string CityInfo(const VelCommon& host) { return host.CityFolder() + "CityInfo.ini"; }
std::string UserIni(const VelCommon& host) { return host.UserFolder() + "User.ini"; }

/// Left and top.
std::pair<double, double> StoredPlace(const std::string& position) {
    std::vector<std::string> parts = text::Split(position, ',');
    if (parts.size() < 2 || !ParseNumber(parts[0]) || !ParseNumber(parts[1]))
        parts = text::Split(DefaultPosition, ',');
    return {*ParseNumber(parts[0]), *ParseNumber(parts[1])};
}

std::string PositionText(const Rect& window) {
    return SingleText(static_cast<float>(window.left)) + "," + SingleText(static_cast<float>(window.top));
}

}  // namespace

WindowSettings ReadWindowSettings(const VelCommon& host) {
    WindowSettings read;
    read.photoSize = settings::ReadText(CityInfo(host), OwnSection, "Photo Size", "480,300,35,35000,4");
    // Kept for the whole installation although each user switches it separately: that is deliberate.
    read.filePreview = text::EqualsIgnoringCase(
        settings::ReadText(CityInfo(host), OwnSection, "FilePreview", "True"), "True");
    read.photoMaximum = std::clamp(settings::ReadInteger(CityInfo(host), OwnSection, "Photo Maximum", 4), 0,
                                   MaximumPhotoSlots);
    read.sortNames = settings::ReadInteger(CityInfo(host), OwnSection, "SortNames", 0) != 0;
    read.importFolder = settings::ReadText(UserIni(host), PhotosSection, ImportKey, "");
    read.startUpPosition = settings::ReadText(UserIni(host), PhotosSection, PositionKey, DefaultPosition);
    read.photoView = settings::ReadText(UserIni(host), OwnSection, PhotoViewKey, "");
    return read;
}

void WriteFilePreview(const VelCommon& host, bool filePreview) {
    settings::WriteText(CityInfo(host), OwnSection, "FilePreview", filePreview ? "True" : "False");
}

Rect PositionOnScreen(const std::string& position, const Rect& window, Size screen) {
    const auto [left, top] = StoredPlace(position);
    return {.left = std::min(left, screen.width - window.width),
            .top = std::min(top, screen.height - window.height),
            .width = window.width,
            .height = window.height};
}

bool StandsAt(const std::string& position, const Rect& window) {
    return StoredPlace(position) == std::pair(window.left, window.top);
}

void WriteStartUpPosition(const VelCommon& host, const Rect& window) {
    settings::WriteText(UserIni(host), PhotosSection, PositionKey, PositionText(window));
}

void WritePhotoView(const VelCommon& host, const std::string& photoView) {
    settings::WriteText(UserIni(host), OwnSection, PhotoViewKey, photoView);
}

void WriteImportFolder(const VelCommon& host, const std::string& folder) {
    settings::WriteText(UserIni(host), PhotosSection, ImportKey, folder);
}

}  // namespace lumarin
