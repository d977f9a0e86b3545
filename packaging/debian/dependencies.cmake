# Read by cpack, once for each kind of package: what the Debian packages depend on. Of libraries
# that are linked dpkg-shlibdeps finds the packages; those of what is opened by name are in
# scripts/packages. What a program does without, and then says so, is recommended.
if(CPACK_GENERATOR STREQUAL "TGZ")
  set(CPACK_SET_DESTDIR ON)
  set(CPACK_INSTALL_PREFIX /usr/local)
  set(CPACK_MONOLITHIC_INSTALL ON)
endif()
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

# packages_of(SET VARIABLE): a set of scripts/packages, separated by commas.
function(packages_of set variable)
  file(STRINGS ${CPACK_QUORVANTIS_SOURCE}/scripts/packages lines)
  set(inside OFF)
  set(packages "")
  foreach(line IN LISTS lines)
    if(line MATCHES "^\\[(.*)\\]")
      string(COMPARE EQUAL "${CMAKE_MATCH_1}" "${set}" inside)
    elseif(inside AND line MATCHES "^([a-z0-9][^ #]*)")
      list(APPEND packages ${CMAKE_MATCH_1})
    endif()
  endforeach()
  if(NOT packages)
    message(FATAL_ERROR "no set ${set} in scripts/packages")
  endif()
  list(JOIN packages ", " packages)
  set(${variable} ${packages} PARENT_SCOPE)
endfunction()

# libraries_of(PREFIX DEPENDS FILES... RECOMMENDS FILES...): PREFIX_Depends and PREFIX_Recommends, the
# packages of the libraries that these files of the build are linked with. A file that wasn't built
# is passed over.
function(libraries_of prefix)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DEPENDS;RECOMMENDS")
  set(scratch ${CPACK_QUORVANTIS_BUILD}/packages/dependencies)
  file(WRITE ${scratch}/debian/control "Source: quorvantis\n\nPackage: quorvantis\nArchitecture: any\n")
  set(arguments "")
  foreach(field Depends Recommends)
    string(TOUPPER ${field} files)
    foreach(file IN LISTS arg_${files})
      if(EXISTS ${CPACK_QUORVANTIS_BUILD}/${file})
        list(APPEND arguments -d${field} -e${CPACK_QUORVANTIS_BUILD}/${file})
      endif()
    endforeach()
    set(${prefix}_${field} "" PARENT_SCOPE)
  endforeach()
  execute_process(COMMAND dpkg-shlibdeps -O ${arguments} WORKING_DIRECTORY ${scratch}
                  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "dpkg-shlibdeps (of Debian's package dpkg-dev): ${failed}\n${errors}")
  endif()
  foreach(field Depends Recommends)
    if(output MATCHES "shlibs:${field}=([^\n]+)")
      set(${prefix}_${field} ${CMAKE_MATCH_1} PARENT_SCOPE)
    endif()
  endforeach()
endfunction()

# joined(VARIABLE TEXTS...): those that aren't empty, separated by commas.
function(joined variable)
  list(FILTER ARGN EXCLUDE REGEX "^$")
  list(JOIN ARGN ", " text)
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

libraries_of(shell
  DEPENDS bin/quorvantis modules/quorvantis-xml.so modules/quorvantis-bus.so
          modules/quorvantis-desktop-books.so
  RECOMMENDS modules/quorvantis-icu.so)
packages_of(contacts contacts)
if(NOT EXISTS ${CPACK_QUORVANTIS_BUILD}/modules/quorvantis-vcards.so)
  set(contacts "")
endif()
set(CPACK_DEBIAN_SHELL_PACKAGE_DEPENDS ${shell_Depends})
joined(CPACK_DEBIAN_SHELL_PACKAGE_RECOMMENDS "${shell_Recommends}" "${contacts}")

if(CPACK_QUORVANTIS_WINDOW)
  libraries_of(window
    DEPENDS bin/quorvantis-settings
    RECOMMENDS modules/quorvantis-gio.so modules/quorvantis-gstreamer.so)
  packages_of(window-run opened)
  packages_of(wayland wayland)
  packages_of(sound sound)
  if(NOT EXISTS ${CPACK_QUORVANTIS_BUILD}/modules/quorvantis-gstreamer.so)
    set(sound "")
  endif()
  joined(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS
         "quorvantis (= ${CPACK_QUORVANTIS_VERSION})" "${window_Depends}" "${opened}")
  joined(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "${window_Recommends}" "${wayland}" "${sound}")
endif()
