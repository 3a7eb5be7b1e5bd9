# Compiles each header of INCLUDE alone, behind nothing else, in every dialect that a sibling may be
# written in, and as a kernel does: without a C library's headers.
# Usage: cmake -DINCLUDE=folder -DWORK=folder -DCC=compiler -DCXX=compiler -P header_check.cmake
file(REMOVE_RECURSE ${WORK})
file(GLOB headers RELATIVE ${INCLUDE} ${INCLUDE}/ldsdk/*.h)
list(LENGTH headers count)
if(count LESS 20)
  message(FATAL_ERROR "${INCLUDE} has too few headers: ${count}")
endif()
foreach(header ${headers})
  get_filename_component(name ${header} NAME_WE)
  foreach(suffix c cpp)
    # Twice, as through others; the declaration is for a header of macros.
    file(WRITE ${WORK}/${name}.${suffix}
      "#include <${header}>\n#include <${header}>\nextern int check_${name};\n")
    list(APPEND ${suffix}_files ${WORK}/${name}.${suffix})
  endforeach()
endforeach()
# What a kernel's own header declares.
file(WRITE ${WORK}/kernel/linux/types.h "typedef unsigned char uint8_t;
typedef unsigned short uint16_t;
typedef unsigned int uint32_t;
typedef unsigned long long uint64_t;
typedef unsigned long uintptr_t;
typedef unsigned long size_t;
typedef signed char int8_t;
typedef short int16_t;
typedef int int32_t;
typedef long long int64_t;
")

function(check compiler files)
  execute_process(COMMAND ${compiler} -Wall -Wextra -Werror -fsyntax-only -I${INCLUDE} ${ARGN} ${files}
    RESULT_VARIABLE result ERROR_VARIABLE said)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${compiler} ${ARGN}: ${said}")
  endif()
endfunction()

foreach(dialect c99 c11 c17)
  check(${CC} "${c_files}" -std=${dialect} -pedantic)
endforeach()
foreach(dialect 98 11 14 17 20)
  check(${CXX} "${cpp_files}" -std=c++${dialect} -pedantic)
endforeach()
check(${CC} "${c_files}" -std=gnu89 -nostdinc -ffreestanding -D__KERNEL__ -I${WORK}/kernel)
