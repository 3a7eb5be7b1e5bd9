// ldsdk-asm: microcode sources to images, and images to sources.
#include "host/assembler.h"
#include "host/write_file.h"

#include <cerrno>
#include <CLI/CLI.hpp>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

using namespace ldsdk::host;

namespace {

constexpr int kExitOk = 0;
constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;

struct Options {
    std::string input;
    std::string output;
    bool disassemble = false;
};

std::runtime_error file_error(const std::string &name)
{
    return std::runtime_error(name + ": " + std::strerror(errno));
}

std::string read_file(const std::string &name)
{
    if (name == "-") {
        return {std::istreambuf_iterator<char>(std::cin), {}};
    }
    if (std::filesystem::is_directory(name)) {
        errno = EISDIR;
        throw file_error(name);
    }
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        throw file_error(name);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

int run(const Options &options)
{
    const std::string content = read_file(options.input);
    if (options.disassemble) {
        const auto *bytes = reinterpret_cast<const uint8_t *>(content.data());
        write_file(options.output.empty() ? "-" : options.output,
                   image_to_source({bytes, content.size()}), options.input);
        return kExitOk;
    }
    const Assembly result = assemble(content, options.input);
    for (const SourceError &error : result.errors) {
        std::cerr << error.message() << '\n';
    }
    if (!result.errors.empty()) {
        if (result.more_errors) {
            std::cerr << "ldsdk-asm: " << options.input << ": more errors than these "
                      << result.errors.size() << '\n';
        }
        return kExitFailed;
    }
    write_file(options.output, std::string(result.image.begin(), result.image.end()),
               options.input);
    return kExitOk;
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what setting up options throws is out of memory
int main(int argc, char **argv)
{
    Options options;
    CLI::App app{"Assembles microcode sources to images, and images back to sources.", "ldsdk-asm"};
    app.add_option("FILE", options.input, "the source, or with -d the image; - is standard input")
        ->required();
    app.add_option("-o,--output", options.output,
                   "where the result goes; - is standard output, and the default with -d");
    app.add_flag("-d,--disassemble", options.disassemble,
                 "print a source that assembles to the same bytes");
    app.set_version_flag("-V,--version", "ldsdk-asm " LDSDK_VERSION);
    app.footer(
        "docs/microcode.md describes the language.\n"
        "Exit status: 0; 1 the source or a file is wrong; 2 bad usage.");
    try {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? kExitOk : kExitUsage;
    }
    if (!options.disassemble && options.output.empty()) {
        std::cerr << "ldsdk-asm: no output; expected -o IMAGE, or -d to print a source\n";
        return kExitUsage;
    }
    try {
        return run(options);
    }
    catch (const std::exception &error) {
        std::cerr << "ldsdk-asm: " << error.what() << '\n';
        return kExitFailed;
    }
}
