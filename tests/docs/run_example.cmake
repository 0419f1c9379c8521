# Runs PROGRAM and compares what it prints with the file EXPECTED, byte for byte.
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed ERROR_VARIABLE complaint RESULT_VARIABLE status)
file(READ "${EXPECTED}" expected)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "ended with ${status}\n${complaint}")
endif()
if(NOT "x${printed}" STREQUAL "x${expected}")
  message(FATAL_ERROR "printed\n${printed}\nand not what ${EXPECTED} has:\n${expected}")
endif()
