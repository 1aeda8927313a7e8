// Runs every file of the directories given, and a fixed number of changed copies of each: bytes
// flipped, cut out, doubled, or taken from the other files. The same inputs on every machine.

#include "Check.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int changedCopies = 500; // of each seed

std::vector<Bytes> readSeeds(int argc, char ** argv)
{
    std::vector<std::filesystem::path> paths;
    for (int i = 1; i < argc; ++i) {
        for (auto const & entry : std::filesystem::directory_iterator(argv[i])) {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    std::vector<Bytes> seeds;
    for (auto const & path : paths) {
        std::ifstream file(path, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return seeds;
}

class Changer
{
public:
    Bytes change(Bytes bytes, Bytes const & other)
    {
        for (unsigned step = 0, steps = 1 + number(4); step < steps; ++step) {
            changeOnce(bytes, other);
        }
        return bytes;
    }
    unsigned number(std::size_t below) { return static_cast<unsigned>(m_random() % below); }

private:
    using Place = Bytes::difference_type;

    Place place(Bytes const & bytes) { return number(bytes.size() + 1); }
    void changeOnce(Bytes & bytes, Bytes const & other)
    {
        if (bytes.empty()) {
            bytes.push_back(static_cast<std::uint8_t>(number(256)));
            return;
        }
        auto const [low, high] = std::minmax({place(bytes), place(bytes)});
        switch (number(5)) {
        case 0:
            bytes[number(bytes.size())] = static_cast<std::uint8_t>(number(256));
            break;
        case 1:
            bytes.erase(bytes.begin() + low, bytes.begin() + high);
            break;
        case 2: {
            Bytes const copy(bytes.begin() + low, bytes.begin() + high);
            bytes.insert(bytes.begin() + high, copy.begin(), copy.end());
            break;
        }
        case 3:
            bytes.insert(bytes.begin() + low, static_cast<std::uint8_t>(number(256)));
            break;
        case 4:
            bytes.insert(bytes.begin() + low, other.begin(), other.begin() + place(other));
            break;
        }
    }

    std::mt19937 m_random{20'011};
};

} // namespace

int main(int argc, char ** argv)
{
    std::vector<Bytes> const seeds = readSeeds(argc, argv);
    if (seeds.empty()) {
        std::fprintf(stderr, "no seeds\n");
        return 1;
    }
    Changer changer;
    LLVMFuzzerTestOneInput(nullptr, 0);
    for (Bytes const & seed : seeds) {
        LLVMFuzzerTestOneInput(seed.data(), seed.size());
        for (int i = 0; i < changedCopies; ++i) {
            Bytes const changed = changer.change(seed, seeds[changer.number(seeds.size())]);
            LLVMFuzzerTestOneInput(changed.data(), changed.size());
        }
    }
    return 0;
}
