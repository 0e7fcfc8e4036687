# The warnings for code of this project. They are errors where CMAKE_COMPILE_WARNING_AS_ERROR is on, as in the preset
# `dev`; a consumer's build of the library does not ask for them.
function(steprt_set_warnings target)
  if(NOT STEPRT_DEVELOPER)
    return()
  endif()
  target_compile_options(
    ${target}
    PRIVATE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wcast-qual
            -Wformat=2
            -Wundef
            -Wunused
            $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond>
            $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op>
            # GCC 12 finds overlapping copies in the standard library's strings that are none.
            $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
endfunction()
