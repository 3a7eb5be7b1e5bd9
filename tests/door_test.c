#include <ldsdk/host.h>
#include <ldsdk/ldsdk.h>

int main(void)
{
    static const char command[512] = "\5\0\0\0me\0micro\0glb\0version\0sdk";
    return ldsdk_model_attach(0) || Np_GLB_ChipRegister(0, 1, 0, ldsdk_model_reg_base(0)) ||
           Np_INIT_SdkCmdTreeInstall() || Np_INIT_SdkInit(0) || ldsdk_device_ioctl(command);
}
