// Runs a fuzzer's function without a fuzzing engine: over a corpus, then over mutations of it. For
// compilers that have no engine, and for short runs that come out the same every time.
// Usage: NAME CORPUS_FOLDER [MUTATIONS [SEED [KEEP_FILE]]]
// Each input is written to KEEP_FILE before it runs, so that the one that fails stays there.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

using Bytes = std::vector<uint8_t>;

constexpr size_t kLongest = 4096;

std::vector<Bytes> read_corpus(const char *folder)
{
    std::vector<std::filesystem::path> paths;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    std::vector<Bytes> corpus;
    for (const auto &path : paths) {
        std::ifstream file(path, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return corpus;
}

class Mutator {
  public:
    explicit Mutator(uint32_t seed) : random_(seed) {}

    Bytes mutate(const std::vector<Bytes> &corpus)
    {
        Bytes bytes = corpus[below(corpus.size())];
        for (size_t changes = 1 + below(6); changes != 0; changes--) {
            change(bytes, corpus);
        }
        bytes.resize(std::min(bytes.size(), kLongest));
        return bytes;
    }

  private:
    size_t below(size_t limit)
    {
        return limit == 0 ? 0 : random_() % limit;
    }

    void change(Bytes &bytes, const std::vector<Bytes> &corpus)
    {
        static constexpr uint8_t kEdges[] = {0x00, 0x01, 0x7f, 0x80, 0xff, ' ', '0', '9'};
        const size_t at = below(bytes.size() + 1);
        const auto place = bytes.begin() + static_cast<ptrdiff_t>(at);
        switch (below(7)) {
            case 0:
                bytes.insert(place, 1 + below(4), static_cast<uint8_t>(random_()));
                return;
            case 1: {
                const auto count = static_cast<ptrdiff_t>(below(bytes.size() - at + 1));
                bytes.erase(place, place + count);
                return;
            }
            case 2: {  // a piece of another input
                const Bytes &other = corpus[below(corpus.size())];
                const size_t from = below(other.size());
                const size_t size = below(other.size() - from + 1);
                const auto begin = other.begin() + static_cast<ptrdiff_t>(from);
                bytes.insert(place, begin, begin + static_cast<ptrdiff_t>(size));
                return;
            }
            case 3:
                if (at != bytes.size()) {
                    bytes[at] = kEdges[below(std::size(kEdges))];
                }
                return;
            case 4:
                if (at != bytes.size()) {
                    bytes[at] = static_cast<uint8_t>(bytes[at] + below(5) - 2);
                }
                return;
            default:
                if (at != bytes.size()) {
                    bytes[at] ^= static_cast<uint8_t>(1u << below(8));
                }
                return;
        }
    }

    std::mt19937 random_;
};

void run(const Bytes &bytes, const char *keep)
{
    if (keep != nullptr) {
        std::ofstream file(keep, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char *>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER [MUTATIONS [SEED [KEEP_FILE]]]\n", argv[0]);
        return 2;
    }
    const unsigned long mutations = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const unsigned long seed = argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 1;
    const char *keep = argc > 4 ? argv[4] : nullptr;
    const std::vector<Bytes> corpus = read_corpus(argv[1]);
    if (corpus.empty()) {
        std::fprintf(stderr, "%s: no inputs\n", argv[1]);
        return 1;
    }
    for (const Bytes &bytes : corpus) {
        run(bytes, keep);
    }
    // An exact copy on the heap, so that a byte too far is seen by those who look.
    Mutator mutator(static_cast<uint32_t>(seed));
    for (unsigned long i = 0; i < mutations; i++) {
        const Bytes bytes = mutator.mutate(corpus);
        const Bytes exact(bytes.begin(), bytes.end());
        run(exact, keep);
    }
    std::printf("%zu inputs, %lu mutations\n", corpus.size(), mutations);
    return 0;
}
