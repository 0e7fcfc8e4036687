# What is wanted when steprt itself is worked on, and nothing of which reaches a consumer: the parts beside the library,
# and flags for the whole tree.
include(${CMAKE_CURRENT_LIST_DIR}/sanitisers.cmake)

option(STEPRT_FUZZ "Build the library and the fuzz targets for libFuzzer, and nothing else (clang)" OFF)
enable_testing()

# Every program in one place, so that the scripts find it.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# A part is built as soon as its folder has a CMakeLists.txt.
function(steprt_add_developer_parts)
  set(parts fuzz)
  if(NOT STEPRT_FUZZ)
    list(PREPEND parts tests examples bench)
  endif()
  foreach(part IN LISTS parts)
    if(EXISTS ${PROJECT_SOURCE_DIR}/${part}/CMakeLists.txt)
      add_subdirectory(${part})
    endif()
  endforeach()
endfunction()
