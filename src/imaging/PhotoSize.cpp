#include "imaging/PhotoSize.h"

#include <vector>

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace lumarin {

namespace {

constexpr const char* Source = "frmPhotoCrop-SetPhotoSize";
constexpr std::int32_t InvalidValue = 5;
constexpr std::int32_t TypeMismatch = 13;
constexpr std::int32_t LongestJpegSide = 65535;
constexpr std::size_t MarkerField = 5;  // field 4 is left out on purpose: nothing has ever read it

std::int32_t NumberAt(const std::vector<std::string>& fields, std::size_t at) {
    if (at >= fields.size())
        throw IndexError(
            Source, static_cast<long long>(at) + 1,
            "the setting \"Photo Size\" has only " + std::to_string(fields.size()) + " of its 4 numbers");
    const auto number = ParseNumber(fields[at]);
    if (!number)
        throw Error(TypeMismatch, Source,
                    "The setting \"Photo Size\" has no number in field " + std::to_string(at + 1));
    try {
        return RoundToWhole(*number);
    } catch (const Error& error) {
        throw Error(
            error.Number(), Source,
            "The setting \"Photo Size\", field " + std::to_string(at + 1) + ": " + error.Description());
    }
}

void CheckSide(std::int32_t side) {
    if (side < 1 || side > LongestJpegSide)
        throw Error(
            InvalidValue, Source,
            "The setting \"Photo Size\" asks for a photo side of " + std::to_string(side) + " pixels");
}

}  // namespace

PhotoSize ParsePhotoSize(const std::string& setting) {
    const std::vector<std::string> fields = text::Split(setting, ',');
    PhotoSize size;
    size.TargetWidth = NumberAt(fields, 0);
    size.TargetHeight = NumberAt(fields, 1);
    size.JpegQuality = NumberAt(fields, 2);
    size.MaxFileBytes = NumberAt(fields, 3);
    if (fields.size() > MarkerField) size.MarkerText = fields[MarkerField];
    CheckSide(size.TargetWidth);
    CheckSide(size.TargetHeight);
    return size;
}

}  // namespace lumarin
