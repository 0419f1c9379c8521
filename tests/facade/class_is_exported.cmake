# Fails where the library does not export the symbol by which other code links to the class.
execute_process(COMMAND "${NM}" ${NM_FLAGS} "${LIBRARY}"
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(FIND "${symbols}" " ${SYMBOL}\n" place)
if(place EQUAL -1)
  message(FATAL_ERROR "${LIBRARY} does not export ${SYMBOL}")
endif()
