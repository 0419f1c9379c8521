# Fails where the library does not export the symbol by which other code links to the class.
execute_process(COMMAND "${NM}" -D --defined-only "${LIBRARY}"
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
foreach(symbol IN ITEMS __objc_class_name_Varnel varnel_parse_mrz)
  if(NOT symbols MATCHES " [A-Z] ${symbol}\n")
    message(FATAL_ERROR "${LIBRARY} does not export ${symbol}")
  endif()
endforeach()
