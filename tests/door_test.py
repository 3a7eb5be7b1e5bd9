import ctypes, sys
sdk = ctypes.CDLL(sys.argv[1])
assert sdk.ldsdk_model_attach(0) == 0
assert sdk.Np_GLB_ChipRegister(0, 1, 0, 0) == 0
assert sdk.Np_INIT_SdkCmdTreeInstall() == 0
assert sdk.Np_INIT_SdkInit(0) == 0
sink_type = ctypes.CFUNCTYPE(None, ctypes.c_char_p, ctypes.c_void_p)
sink = sink_type(lambda text, user: print(text.decode(), end=""))
sdk.ldsdk_set_output(sink, None)
assert sdk.ldsdk_device_ioctl(b"\5\0\0\0me\0micro\0glb\0version\0sdk".ljust(512, b"\0")) == 0
