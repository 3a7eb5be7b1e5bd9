#include "tools/ldsdk/model_door.h"

#include "host/image.h"

namespace ldsdk::tool {

namespace {

class LocalModel : public ModelDoor {
  public:
    uint32_t call(LdDebugCall &call) override
    {
        return Ld_Debug(&call);
    }
    uint32_t load(uint32_t chip, std::span<const uint8_t> image) override
    {
        return host::load_image(chip, image);
    }
    std::string between() const override
    {
        return "";
    }
};

}  // namespace

ModelDoor &local_model()
{
    static LocalModel model;
    return model;
}

}  // namespace ldsdk::tool
