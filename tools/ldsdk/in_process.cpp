#include "tools/ldsdk/in_process.h"

#include "host/image.h"
#include "ldsdk/host.h"
#include "sdk/module/tree.h"
#include "tools/ldsdk/error.h"

#include <cstdio>

namespace ldsdk::tool {

namespace {

// Names the output of a command while it runs.
class OutputScope {
  public:
    OutputScope(Output *&slot, Output &output) : slot_(slot)
    {
        slot_ = &output;
    }
    ~OutputScope()
    {
        slot_ = nullptr;
    }
    OutputScope(const OutputScope &) = delete;
    OutputScope &operator=(const OutputScope &) = delete;

  private:
    Output *&slot_;
};

std::vector<NextWord> tree_next_words(std::span<const std::string> path)
{
    const NpCliCmdEntry *level = g_stNpSdkCmds;
    size_t count = std::size(g_stNpSdkCmds);
    for (size_t i = 0; i < path.size(); i++) {
        const std::string &word = path[i];
        const NpCliCmdEntry *end = level + count;
        const NpCliCmdEntry *entry = level;
        while (entry != end && word != entry->szName) {
            entry++;
        }
        if (entry == end) {
            return {unknown_word(word)};
        }
        if (entry->ulChildNum == 0) {
            return param_next_words(entry->pfnHandler, path.subspan(i + 1));
        }
        level = entry->pstChildren;
        count = entry->ulChildNum;
    }
    std::vector<NextWord> words;
    for (size_t i = 0; i < count; i++) {
        words.push_back({level[i].szName, level[i].szHelp, level[i].ulChildNum != 0});
    }
    return words;
}

}  // namespace

std::vector<NextWord> local_next_words(std::span<const std::string> path)
{
    if (path.empty()) {
        std::vector<NextWord> words = tree_next_words(path);
        words.push_back({"chip", "commands of the chip model", true});
        return words;
    }
    return path[0] == "chip" ? chip_next_words(path) : tree_next_words(path);
}

namespace {

void check_step(const std::string &step, uint32_t status)
{
    if (status != 0) {
        char code[16];
        std::snprintf(code, sizeof code, "0x%08x", status);
        throw failed(step + " gives " + code);
    }
}

}  // namespace

InProcess::InProcess() : sibling_({})
{
    ldsdk_set_output(sink, this);
    ldsdk_model_attach(sibling_.chip());
    const uint32_t status = sibling_.start();
    check_step(sibling_.failed_step(), status);
    // Without the image the chip runs as well, with nothing in its engines.
    if (const std::string image = host::example_image(); !image.empty()) {
        check_step("loading " + image, host::load_image(sibling_.chip(), host::read_image(image)));
    }
}

InProcess::~InProcess()
{
    ldsdk_set_output([](const char *, void *) {}, nullptr);
}

void InProcess::sink(const char *text, void *user)
{
    if (Output *output = static_cast<InProcess *>(user)->output_; output != nullptr) {
        output->write(text);
    }
}

void InProcess::device(const CommandBuffer &buffer, Output &output)
{
    const OutputScope scope(output_, output);
    if (const int status = ldsdk_device_ioctl(buffer.data()); status != 0) {
        throw failed("the command device refuses the command with " + std::to_string(status));
    }
}

void InProcess::chip(std::span<const std::string> words, CarriedFile &file, Output &output)
{
    chip(session_, words, file, output);
}

void InProcess::chip(ChipSession &session, std::span<const std::string> words, CarriedFile &file,
                     Output &output)
{
    const OutputScope scope(output_, output);
    session.run(words, file, output);
}

std::vector<NextWord> InProcess::next_words(std::span<const std::string> path)
{
    return local_next_words(path);
}

}  // namespace ldsdk::tool
