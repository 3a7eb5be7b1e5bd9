// A module that is loaded in the kernel, through its misc device.
#pragma once

#include "tools/ldsdk/backend.h"
#include "tools/ldsdk/chip_commands.h"
#include "tools/ldsdk/fd.h"
#include "tools/log/kernel_log.h"

#include <optional>

namespace ldsdk::tool {

// The chip model in the kernel, through a misc device of its own beside the module's: behind
// /dev/ldsdk it is /dev/ldsdk_chip.
class DeviceModel : public ModelDoor {
  public:
    explicit DeviceModel(const std::string &device) : device_(device), path_(device + "_chip") {}

    uint32_t call(LdDebugCall &call) override;
    std::string between() const override
    {
        return device_;
    }

  private:
    std::string device_;
    std::string path_;
    Fd fd_;  // opened by the first call
};

class CharDevice : public Backend {
  public:
    explicit CharDevice(const std::string &path);

    // What the command prints is read back from the kernel log.
    void device(const CommandBuffer &buffer, Output &output) override;
    // Throws when a real chip stands behind the module.
    void chip(std::span<const std::string> words, Output &output) override;
    // The tree of the module that this tool was built with.
    std::vector<NextWord> next_words(std::span<const std::string> path) override;

  private:
    std::string path_;
    Fd fd_;
    std::optional<KernelLog> log_;
    DeviceModel model_;
    ChipSession session_;
};

}  // namespace ldsdk::tool
