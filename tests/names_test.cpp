// The public names: what the shared library shows is the locked list, nothing more and nothing
// less.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <set>
#include <string>

namespace {

std::set<std::string> lines_of(const std::string &path)
{
    std::set<std::string> names;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty()) {
            names.insert(line);
        }
    }
    return names;
}

std::set<std::string> exported()
{
    std::set<std::string> names;
    const std::string command = "nm -D --defined-only --format=posix " LDSDK_LIBRARY;
    const std::unique_ptr<FILE, int (*)(FILE *)> pipe(popen(command.c_str(), "r"), pclose);
    std::array<char, 512> line{};
    while (pipe != nullptr && std::fgets(line.data(), line.size(), pipe.get()) != nullptr) {
        const std::string text = line.data();
        names.insert(text.substr(0, text.find(' ')));
    }
    return names;
}

TEST(Names, TheLibraryShowsTheInterfaceAndNothingElse)
{
    EXPECT_EQ(exported(), lines_of(LDSDK_SOURCE_DIR "/tests/public_names.txt"));
}

}  // namespace
