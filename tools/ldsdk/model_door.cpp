#include "tools/ldsdk/model_door.h"

namespace ldsdk::tool {

namespace {

class LocalModel : public ModelDoor {
  public:
    uint32_t call(LdDebugCall &call) override
    {
        return Ld_Debug(&call);
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
