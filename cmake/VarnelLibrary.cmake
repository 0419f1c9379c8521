# How an installed program or library names its own folder to the loader, so that it finds what lies beside it,
# wherever the tree was put or moved to.
if(APPLE)
  set(VARNEL_OWN_FOLDER "@loader_path")
else()
  set(VARNEL_OWN_FOLDER "$ORIGIN")
endif()

# What the libraries share: C++ as a language, hidden symbols, no runtime. The core and the documents library
# are built alike.
function(varnel_library target)
  target_compile_features(${target} PRIVATE cxx_std_17)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})
  varnel_warnings(${target})

  # C++ as a language, without its runtime: nothing of the C++ library is linked or called.
  if(MSVC)
    target_compile_options(${target} PRIVATE /EHs-c- /GR- /Zc:threadSafeInit-)
    target_compile_definitions(${target} PRIVATE _HAS_EXCEPTIONS=0)
  else()
    target_compile_options(${target} PRIVATE
      -fno-exceptions -fno-rtti -fno-threadsafe-statics
      $<$<NOT:$<PLATFORM_ID:Windows>>:-fno-asynchronous-unwind-tables> # which Windows needs of every function
      $<$<CONFIG:Release>:-O2> # as fast as -O3 to a tenth, at two thirds of its size
      # Nothing is aligned beyond need: that gains no time and costs a twentieth of the size.
      $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-fno-align-functions$<SEMICOLON>-fno-align-loops$<SEMICOLON>-fno-align-jumps>
      # Wide words stay within the library: how another compiler would pass them does not matter.
      $<$<CXX_COMPILER_ID:GNU>:-Wno-psabi>)
  endif()
  if(APPLE)
    target_link_options(${target} PRIVATE -nostdlib++)
  elseif(UNIX)
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    # Nothing runs when the libraries are loaded or unloaded, so that the code that would call it is left out.
    target_link_options(${target} PRIVATE
      LINKER:--as-needed LINKER:--no-undefined LINKER:-Bsymbolic-functions LINKER:--hash-style=gnu -nostartfiles)
  elseif(WIN32)
    # The headers mark what a DLL exports while it is built, and what programs import from it.
    string(TOUPPER ${target}_EXPORTS exports)
    set_target_properties(${target} PROPERTIES DEFINE_SYMBOL ${exports})
    if(NOT BUILD_SHARED_LIBS)
      target_compile_definitions(${target} PUBLIC VARNEL_STATIC)
    endif()
  endif()
endfunction()
