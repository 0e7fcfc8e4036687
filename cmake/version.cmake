# The version in include/steprt/version.h must be that of the project.
set(versionHeader ${PROJECT_SOURCE_DIR}/include/steprt/version.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${versionHeader})
file(STRINGS ${versionHeader} versionLines REGEX "define STEPRT_VERSION_(MAJOR|MINOR|PATCH) [0-9]")
string(REGEX REPLACE "[^;]*_(MAJOR|MINOR|PATCH) ([0-9]+)[^;]*" "\\2" headerVersion "${versionLines}")
string(REPLACE ";" "." headerVersion "${headerVersion}")
if(NOT headerVersion STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "${versionHeader} says ${headerVersion}, but the project's version is ${PROJECT_VERSION}")
endif()
