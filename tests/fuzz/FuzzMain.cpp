// Runs a fuzz target on its seeds and on mutations of them. Usage: fuzz_NAME SEED_FOLDER [RUNS [SEED]].
// The default is bounded and repeatable; a crash or a broken promise ends the program.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::string> ReadSeeds(const std::string& folder) {
    const std::filesystem::directory_iterator entries(folder);
    // By name: what a run does must not depend on the file system.
    const std::set<std::filesystem::path> paths(begin(entries), end(entries));
    std::vector<std::string> seeds;
    for (const std::filesystem::path& path : paths) {
        std::ifstream in(path, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return seeds;
}

class Mutator {
public:
    Mutator(const std::vector<std::string>& seeds, std::uint64_t seed) : seeds_(seeds), random_(seed) {}

    std::string Next() {
        std::string bytes = seeds_[Below(seeds_.size())];
        for (std::size_t changes = 1 + Below(6); changes > 0; --changes) Change(bytes);
        return bytes;
    }

private:
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

    /// Turns a bit over, or puts a run of one byte, a piece of another seed or nothing in place of a stretch.
    void Change(std::string& bytes) {
        const std::size_t from = Below(bytes.size() + 1);
        if (from < bytes.size() && Below(4) == 0) {
            bytes[from] = static_cast<char>(bytes[from] ^ 1 << Below(8));
            return;
        }
        const std::string& other = seeds_[Below(seeds_.size())];
        const std::size_t piece = Below(other.size() + 1);
        const auto byte = static_cast<char>(Below(2) == 0 ? 0xFF : Below(256));
        const std::string put[] = {std::string(Below(40), byte), other.substr(piece, Below(other.size())),
                                   ""};
        bytes.replace(from, Below(3) == 0 ? Below(bytes.size()) : Below(3), put[Below(3)]);
    }

    const std::vector<std::string>& seeds_;
    std::mt19937_64 random_;
};

/// Without room behind the bytes: reading there is an error that the sanitizer sees.
void Try(const std::string& bytes) {
    const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return std::fprintf(stderr, "usage: %s SEED_FOLDER [RUNS [SEED]]\n", argv[0]), 2;
    const long runs = argc > 2 ? std::strtol(argv[2], nullptr, 10) : 20000;
    const std::vector<std::string> seeds = ReadSeeds(argv[1]);
    if (seeds.empty()) return std::fprintf(stderr, "no seeds in %s\n", argv[1]), 2;
    for (const std::string& seed : seeds) Try(seed);
    Mutator mutator(seeds, argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1);
    for (long run = 0; run < runs; ++run) Try(mutator.Next());
    std::printf("%zu seeds, %ld runs\n", seeds.size(), runs);
    return 0;
}
