# Fails when the page in the tree is not what its generator prints.
execute_process(COMMAND ${TOOL} OUTPUT_VARIABLE made RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${TOOL} failed: ${result}")
endif()
file(READ ${PAGE} there)
if(NOT made STREQUAL there)
  message(FATAL_ERROR "${PAGE} is out of date: run `make status`")
endif()
