#include "platform/sane/SaneStatus.h"

#include <string>

#include "imaging/Scanner.h"

namespace lumarin::sane {

namespace {

std::string StatusText(SANE_Status status) {
    switch (status) {
        case SANE_STATUS_DEVICE_BUSY:
            return "The scanner is in use by another program.";
        case SANE_STATUS_INVAL:
            return "The scanner cannot be reached. It may have been switched off or unplugged.";
        case SANE_STATUS_JAMMED:
            return "The paper is jammed in the scanner's document feeder.";
        case SANE_STATUS_NO_DOCS:
            return "The scanner's document feeder is empty.";
        case SANE_STATUS_COVER_OPEN:
            return "The scanner's cover is open.";
        case SANE_STATUS_IO_ERROR:
            return "The connection to the scanner failed.";
        case SANE_STATUS_NO_MEM:
            return "There is not enough memory for the scanned picture.";
        case SANE_STATUS_ACCESS_DENIED:
            return "You do not have permission to use the scanner.";
        case SANE_STATUS_CANCELLED:
            return "The scanner has stopped the scan.";
        case SANE_STATUS_EOF:
            return "The scanner ended the picture too early.";
        default:
            return std::string("The scanner failed: ") + sane_strstatus(status);
    }
}

}  // namespace

void CheckSane(SANE_Status status) {
    if (status != SANE_STATUS_GOOD) throw ScannerError(StatusText(status));
}

}  // namespace lumarin::sane
