// The command device as a tool sees it.
#pragma once

#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/tree.h"
#include "tests/fixture.h"

#include <array>
#include <cstring>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace ldsdk::test {

// The 512 bytes of a command: the count, then the words one behind the other.
using CommandBuffer = std::array<char, NP_CLI_BUFFER_SIZE>;

inline CommandBuffer command_buffer(int32_t count, const std::vector<std::string> &words)
{
    CommandBuffer buffer{};
    std::memcpy(buffer.data(), &count, sizeof(count));
    size_t offset = sizeof(count);
    for (const std::string &word : words) {
        const size_t size = std::min(word.size() + 1, buffer.size() - offset);
        std::memcpy(buffer.data() + offset, word.c_str(), size);
        offset += size;
    }
    return buffer;
}

// The line of a level's listing for one word.
inline std::string listed(const std::string &word, const std::string &help)
{
    const std::string pad(word.size() < 32 ? 32 - word.size() : 0, ' ');
    return pad + word + " \t " + help + "\n";
}

// A module with its command tree installed.
class Shell : public Module {
  protected:
    Shell()
    {
        g_np_cli_ctree = {};
        g_ulNpCurrentChipID = 0;
        g_ulNpPubPrompt = 1;
        EXPECT_EQ(Np_INIT_SdkCmdTreeInstall(), 0u);
    }

    static int ioctl(const CommandBuffer &buffer, unsigned int number = 0)
    {
        return ld_sdk_cli_ioctl(nullptr, nullptr, number,
                                reinterpret_cast<uintptr_t>(buffer.data()));
    }

    // Runs a line of words, as `ldsdk LINE` would, and gives what was printed.
    std::string run(const std::string &line)
    {
        words(line);
        EXPECT_EQ(ioctl(buffer_), 0) << line;
        return out.take();
    }

    // Lays words before the readers of a handler, the first of them next. What was printed before
    // is dropped.
    void words(const std::string &line)
    {
        std::vector<std::string> list = {"ldsdk"};
        std::istringstream stream(line);
        for (std::string word; stream >> word;) {
            list.push_back(word);
        }
        buffer_ = command_buffer(static_cast<int32_t>(list.size()), list);
        EXPECT_EQ(buf_to_args(buffer_.data(), NP_CLI_BUFFER_SIZE, &g_argc, g_argv), 0) << line;
        g_argp = 1;
        out.take();
    }

    static int words_left()
    {
        return g_argc - g_argp;
    }

  private:
    CommandBuffer buffer_{};
};

// The same with chip 0 up.
class ShellUp : public Shell {
  protected:
    ShellUp()
    {
        EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
        EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
    }
    ~ShellUp() override
    {
        model::faults_clear();
        EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    }

    // What a call traced as failures of a module, without positions.
    std::vector<std::string> failures(uint32_t module, const std::function<uint32_t()> &call,
                                      uint32_t result)
    {
        trace_errors(static_cast<NpModule>(module));
        out.take();
        EXPECT_EQ(call(), result);
        Np_PrintLevelInit();
        std::vector<std::string> lines;
        const std::string text = out.take();
        for (size_t at = text.find("\r\n["); at != std::string::npos;) {
            const size_t begin = text.find("]: ", at) + 3;
            at = text.find("\r\n[", begin);
            lines.push_back(text.substr(begin, at == std::string::npos ? at : at - begin));
        }
        return lines;
    }
};

}  // namespace ldsdk::test
