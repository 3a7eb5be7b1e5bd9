// A module that is loaded in the kernel, through its misc device.
#pragma once

#include "tools/ldsdk/backend.h"
#include "tools/ldsdk/fd.h"
#include "tools/log/kernel_log.h"

#include <optional>

namespace ldsdk::tool {

class CharDevice : public Backend {
  public:
    explicit CharDevice(const std::string &path);

    // What the command prints is read back from the kernel log.
    void device(const CommandBuffer &buffer, Output &output) override;
    // There is no model behind a loaded module: throws.
    void chip(std::span<const std::string> words, Output &output) override;
    // The tree of the module that this tool was built with.
    std::vector<NextWord> next_words(std::span<const std::string> path) override;

  private:
    std::string path_;
    Fd fd_;
    std::optional<KernelLog> log_;
};

}  // namespace ldsdk::tool
