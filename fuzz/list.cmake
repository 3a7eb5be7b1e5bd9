# The entrances that are fuzzed, the driver functions that each answers itself, and how many mutations
# a short run makes.
set(FUZZERS command image assembler receive disassembler response lies)
set(WRAPPED_receive Qd_CPUTR_PacketReceive)
set(WRAPPED_response Qd_RBA_CommandSend)
set(WRAPPED_lies Qd_RBA_CommandSend)
set(MUTATIONS_command 200000)
set(MUTATIONS_image 20000)
set(MUTATIONS_assembler 3000)
set(MUTATIONS_receive 100000)
set(MUTATIONS_disassembler 20000)
set(MUTATIONS_response 20000)
set(MUTATIONS_lies 20000)
