# What Debian asks of a package's files, done to the staged tree before it is packed: documents beside each
# package, manual pages and changelogs compressed, zsh's completions where Debian's zsh looks for them.
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  set(root "${CPACK_TEMPORARY_DIRECTORY}/${component}")
  if(NOT IS_DIRECTORY "${root}")
    continue() # a source archive
  endif()

  string(TOUPPER "${component}" upper)
  set(package "${CPACK_DEBIAN_${upper}_PACKAGE_NAME}")
  set(documents "${root}/usr/share/doc/${package}")
  file(MAKE_DIRECTORY "${documents}")
  # The licence is in the file that Debian calls copyright; the rest of Varnel's documents has the package's name.
  if(EXISTS "${root}/usr/share/doc/Varnel")
    file(GLOB own "${root}/usr/share/doc/Varnel/*")
    list(FILTER own EXCLUDE REGEX "/LICENSE$")
    foreach(path IN LISTS own)
      file(COPY "${path}" DESTINATION "${documents}")
    endforeach()
    file(REMOVE_RECURSE "${root}/usr/share/doc/Varnel")
  endif()
  file(COPY "${CPACK_VARNEL_PACKAGING}/copyright" DESTINATION "${documents}")
  file(COPY_FILE "${CPACK_VARNEL_CHANGELOG}" "${documents}/changelog.Debian")
  file(GLOB_RECURSE compressed "${documents}/changelog.Debian" "${root}/usr/share/man/*.1")
  execute_process(COMMAND gzip -9nf ${compressed} COMMAND_ERROR_IS_FATAL ANY)

  if(EXISTS "${root}/usr/share/zsh/site-functions")
    file(RENAME "${root}/usr/share/zsh/site-functions" "${root}/usr/share/zsh/vendor-completions")
  endif()

  # Readable by all, writable by their owner, whatever the umask of whoever packs.
  file(CHMOD_RECURSE "${documents}"
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
    DIRECTORY_PERMISSIONS
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
endforeach()
