// A module that is loaded in the kernel, through its misc device.
#pragma once

#include "tools/ldsdk/backend.h"
#include "tools/ldsdk/chip_commands.h"
#include "tools/log/fd.h"
#include "tools/log/kernel_log.h"

#include <functional>
#include <optional>

namespace ldsdk::tool {

// The chip model in the kernel, through a misc device of its own beside the module's: behind
// /dev/ldsdk it is /dev/ldsdk_chip.
class DeviceModel : public ModelDoor {
  public:
    // A command of the module: what it prints.
    using Command = std::function<std::string(const std::vector<std::string> &words)>;

    DeviceModel(const std::string &device, Command command)
        : device_(device), path_(device + "_chip"), command_(std::move(command))
    {
    }

    uint32_t call(LdDebugCall &call) override;
    // The device takes the image, and `micro atom load` its word.
    uint32_t load(uint32_t chip, std::span<const uint8_t> image) override;
    std::string between() const override
    {
        return device_;
    }

  private:
    // Throws what the device refuses.
    void request(unsigned long number, void *record);

    std::string device_;
    std::string path_;
    Command command_;
    Fd fd_;  // opened by the first call
};

class CharDevice : public Backend {
  public:
    explicit CharDevice(const std::string &path);

    // What the command prints is read back from the kernel log.
    void device(const CommandBuffer &buffer, Output &output) override;
    // Throws when a real chip stands behind the module.
    void chip(std::span<const std::string> words, CarriedFile &file, Output &output) override;
    bool has_module() const override
    {
        return false;
    }
    // The tree of the module that this tool was built with.
    std::vector<NextWord> next_words(std::span<const std::string> path) override;

  private:
    // The tool's turn at the device is taken.
    void run(const CommandBuffer &buffer, const std::function<void(std::string_view)> &write);
    std::string answer(const std::vector<std::string> &words);

    std::string path_;
    Fd fd_;
    std::optional<KernelLog> log_;
    DeviceModel model_;
    ChipSession session_;
};

}  // namespace ldsdk::tool
