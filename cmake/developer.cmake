# What work on steprt itself needs and a consumer never sees: the parts beside the library, and flags for the whole tree.
include(${CMAKE_CURRENT_LIST_DIR}/sanitisers.cmake)

set(STEPRT_PARTS "" CACHE STRING "Folders to build beside src/; empty for all")
option(STEPRT_FUZZ "Build the library and the fuzz targets for libFuzzer, and nothing else (clang)" OFF)
enable_testing()

# All programs are in one folder, where the scripts find them.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# A part is built as soon as its folder has a CMakeLists.txt.
function(steprt_add_developer_parts)
  set(parts ${STEPRT_PARTS})
  if(STEPRT_FUZZ)
    set(parts express exchange fuzz)
  elseif(NOT parts)
    set(parts express exchange tools/schemas tests examples bench fuzz)
  endif()
  foreach(part IN LISTS parts)
    if(TARGET steprt_${part})
      continue()  # the command needs it, too
    endif()
    if(EXISTS ${PROJECT_SOURCE_DIR}/${part}/CMakeLists.txt)
      add_subdirectory(${part})
    endif()
  endforeach()
endfunction()
