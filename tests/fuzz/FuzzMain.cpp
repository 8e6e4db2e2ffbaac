// Runs a fuzz target on its seeds and on mutations of them. Usage: fuzz_NAME SEED_FOLDER [RUNS [SEED]].
// The default is bounded and repeatable; a crash or a broken promise ends the program.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

std::vector<Bytes> ReadSeeds(const std::string& folder) {
    std::vector<Bytes> seeds;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream in(entry.path(), std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return seeds;
}

class Mutator {
public:
    Mutator(const std::vector<Bytes>& seeds, std::uint64_t seed) : seeds_(seeds), random_(seed) {}

    Bytes Next() {
        Bytes bytes = seeds_[Below(seeds_.size())];
        for (std::size_t changes = 1 + Below(6); changes > 0; --changes) Change(bytes);
        return bytes;
    }

private:
    static auto At(auto& bytes, std::size_t offset) {
        return bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    }
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

    void Change(Bytes& bytes) {
        const std::size_t from = Below(bytes.size() + 1), count = Below(bytes.size() - from + 1);
        const auto at = At(bytes, from);
        const auto byte = static_cast<std::uint8_t>(Below(2) == 0 ? 0xFF : Below(256));
        switch (Below(6)) {
            case 0:
                if (from < bytes.size()) *at ^= static_cast<std::uint8_t>(1U << Below(8));
                break;
            case 1:
                if (from < bytes.size()) *at = byte;
                break;
            case 2:
                bytes.resize(from);
                break;
            case 3:
                bytes.insert(at, 1 + Below(40), byte);
                break;
            case 4: {  // a piece of another seed
                const Bytes& other = seeds_[Below(seeds_.size())];
                const std::size_t piece = Below(other.size() + 1);
                bytes.insert(at, At(other, piece), At(other, piece + Below(other.size() - piece + 1)));
                break;
            }
            default:
                bytes.erase(at, At(bytes, from + count));
        }
    }

    const std::vector<Bytes>& seeds_;
    std::mt19937_64 random_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return std::fprintf(stderr, "usage: %s SEED_FOLDER [RUNS [SEED]]\n", argv[0]), 2;
    const long runs = argc > 2 ? std::strtol(argv[2], nullptr, 10) : 20000;
    const std::vector<Bytes> seeds = ReadSeeds(argv[1]);
    if (seeds.empty()) return std::fprintf(stderr, "no seeds in %s\n", argv[1]), 2;
    for (const Bytes& seed : seeds) LLVMFuzzerTestOneInput(seed.data(), seed.size());
    Mutator mutator(seeds, argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1);
    for (long run = 0; run < runs; ++run) {
        const Bytes bytes = mutator.Next();
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("%zu seeds, %ld runs\n", seeds.size(), runs);
    return 0;
}
