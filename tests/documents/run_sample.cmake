# Runs PROGRAM and compares what it prints with the file EXPECTED.
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed RESULT_VARIABLE code)
file(READ "${EXPECTED}" expected)
if(NOT code EQUAL 0 OR NOT printed STREQUAL expected)
  message(FATAL_ERROR "${PROGRAM} ended with ${code} and printed\n${printed}\nand not\n${expected}")
endif()
