#include "platform/windows/twain/ConditionCodes.h"

namespace lumarin::twain {

std::string ConditionText(TW_UINT16 code) {
    switch (code) {
        case TWCC_LOWMEMORY:
            return "There is not enough memory for the scanned picture.";
        case TWCC_NODS:
        case TWCC_CHECKDEVICEONLINE:
            return "The scanner cannot be reached. It may have been switched off or unplugged.";
        case TWCC_MAXCONNECTIONS:
            return "The scanner is in use by another program.";
        case TWCC_DENIED:
            return "You do not have permission to use the scanner.";
        case TWCC_PAPERJAM:
            return "The paper is jammed in the scanner's document feeder.";
        case TWCC_PAPERDOUBLEFEED:
            return "The scanner's document feeder took several sheets at once.";
        case TWCC_INTERLOCK:
            return "The scanner's cover is open.";
        case TWCC_NOMEDIA:
            return "The scanner's document feeder is empty.";
        default:
            return "The scanner's software reports a failure (condition code " + std::to_string(code) + ").";
    }
}

}  // namespace lumarin::twain
