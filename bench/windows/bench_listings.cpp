// Writes unsent listings into a working folder. Usage: bench_listings FOLDER COUNT. Each has three photos.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/Files.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"

int main(int argc, char** argv) {
    if (argc < 3) return std::fprintf(stderr, "usage: bench_listings FOLDER COUNT\n"), 2;
    const std::string folder = std::string(argv[1]) + "/";
    lumarin::files::EnsureFolder(folder);
    for (int i = 0; i < std::stoi(argv[2]); ++i) {
        lumarin::ListingState state;
        state.ListNum = 300000 + i;
        state.PhotoCount = 3;
        state.StreetNumber = std::to_string(i + 1);
        state.StreetName = "Long Street";
        for (int photo = 0; photo < state.PhotoCount; ++photo) {
            state.Photos[static_cast<std::size_t>(photo)] = {"2110", "Front", ""};
            lumarin::files::WriteWhole(folder + lumarin::listing_files::PhotoName(state.ListNum, photo),
                                       std::string(20000U + static_cast<std::size_t>(photo), 'x'));
        }
        lumarin::state_file::Write(folder + lumarin::listing_files::StateName(state.ListNum), state);
    }
    return 0;
}
