# Builds the reference documentation of a copy of the headers in WORK.
#
# Where FAULTY_FILE is given, the text REMOVED is first taken out of that header: Doxygen must then fail and
# name COMPLAINT. Otherwise it must succeed without a word, and describe functions and slots.
set(VARNEL_DOCS_HEADERS "${WORK}/include")
set(VARNEL_DOCS_OUTPUT "${WORK}")
file(REMOVE_RECURSE "${WORK}")
file(COPY "${PROJECT_SOURCE_DIR}/include/Varnel" DESTINATION "${VARNEL_DOCS_HEADERS}")
configure_file("${PROJECT_SOURCE_DIR}/docs/Doxyfile.in" "${WORK}/Doxyfile" @ONLY)

if(FAULTY_FILE)
  set(header "${VARNEL_DOCS_HEADERS}/Varnel/${FAULTY_FILE}")
  file(READ "${header}" text)
  string(REPLACE "${REMOVED}" "" faulty "${text}")
  if("x${faulty}" STREQUAL "x${text}")
    message(FATAL_ERROR "No fault was planted: ${FAULTY_FILE} has no such text:\n${REMOVED}")
  endif()
  file(WRITE "${header}" "${faulty}")
endif()

execute_process(COMMAND "${DOXYGEN}" "${WORK}/Doxyfile"
  OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE status)

if(FAULTY_FILE)
  string(FIND "${said}" "${COMPLAINT}" at)
  if(status EQUAL 0 OR at EQUAL -1)
    message(FATAL_ERROR "The fault went unnoticed (${status}): ${COMPLAINT} is not named in\n${said}")
  endif()
  return()
endif()

if(NOT status EQUAL 0 OR NOT "x${said}" STREQUAL "x")
  message(FATAL_ERROR "Doxygen ended with ${status} and said\n${said}")
endif()

# Nothing documented at all would be no warning either.
foreach(expected IN ITEMS
    "group__varnel__utils__match.html;utils_strreplace"
    "group__varnel__mrz.html;MRZ_passport_parse"
    "group__varnel__document.html;varnel_parse_mrz"
    "group__varnel__types.html;nationality (MRZ)"
    "interfaceVarnel.html;parseMRZStringForDictionary"
    "utilities.html;Calendar dates"
    "index.html;varnel_read"
    "index.html;href=\"md_docs_oddities.html\"")
  list(GET expected 0 page)
  list(GET expected 1 words)
  file(GLOB_RECURSE found "${WORK}/html/*${page}")
  if(NOT found)
    message(FATAL_ERROR "There is no page ${page}.")
  endif()
  file(READ "${found}" html)
  string(FIND "${html}" "${words}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${page} says nothing of ${words}.")
  endif()
endforeach()

# In running text Varnel is the project: the class of that name is not meant.
foreach(page IN ITEMS index md_docs_guide md_docs_layouts md_docs_oddities)
  file(READ "${WORK}/html/${page}.html" html)
  if(html MATCHES "interfaceVarnel.html[^>]*>Varnel</a> (reads|is|offers|has|does|gives)")
    message(FATAL_ERROR "${page}.html links the project's name to the class.")
  endif()
endforeach()
