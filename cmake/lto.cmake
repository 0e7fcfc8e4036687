# Link-time optimisation in release builds, where the compiler has it.
include(CheckIPOSupported)

option(STEPRT_LTO "Optimise release builds at link time" ON)

function(steprt_optimise_at_link_time)
  if(NOT STEPRT_LTO)
    return()
  endif()
  check_ipo_supported(RESULT supported OUTPUT reason LANGUAGES CXX)
  if(supported)
    set_target_properties(${ARGN} PROPERTIES INTERPROCEDURAL_OPTIMIZATION_RELEASE ON)
  endif()
endfunction()
