#include <string_view>

#include "base/Error.h"
#include "fuzz/Promise.h"
#include "listing/StateFile.h"

/// Whatever the bytes, they are refused with a reason or read as a state that survives being written.
FUZZ(std::string_view bytes) {
    try {
        const lumarin::ListingState state = lumarin::state_file::Decode(bytes);
        PROMISE(state.PhotoCount >= 0 && state.PhotoCount <= lumarin::MaximumPhotoSlots && state.ListNum > 0);
        const std::string written = lumarin::state_file::Encode(state);
        PROMISE(bytes.substr(0, lumarin::state_file::EncodedSize(bytes)) == written);
        PROMISE(lumarin::state_file::Decode(written) == state);
    } catch (const lumarin::Error& error) {
        PROMISE(!error.Description().empty());
    }
}
