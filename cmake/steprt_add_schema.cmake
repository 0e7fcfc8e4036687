# steprt_add_schema(TARGET FILE... [NAMESPACE ns] [ENTITIES name...] [PARTS n] [FIRST_TYPE n] [MODULE])
#
# Compiles a schema in EXPRESS into the library TARGET, anew whenever a file changes. Programs that link TARGET include
# <ns.h>:
#
#   steprt_add_schema(plant plant.exp)
#   target_link_libraries(program PRIVATE plant)
#
#   FILE        the schema, and those that it names in USE FROM or REFERENCE FROM
#   NAMESPACE   of the C++ code; by default TARGET
#   ENTITIES    only these and what they need; by default all
#   PARTS       the count of sources that hold the attributes; by default 4
#   FIRST_TYPE  the first type number; by default 1
#   MODULE      makes a module with the entry Attach for STEPmodel::AttachDll, instead of a static library
#
# The function runs the command steprt. STEPRT_COMMAND names another one, which a cross compiler needs: the command must
# run where the build runs. Without it, a cross build searches PATH.
set(STEPRT_COMMAND "" CACHE FILEPATH "The command steprt that compiles schemas; empty: the one of this package")

function(steprt_find_command out)
  set(command ${STEPRT_COMMAND})
  if(NOT command AND CMAKE_CROSSCOMPILING)
    find_program(STEPRT_HOST_COMMAND steprt NO_CMAKE_FIND_ROOT_PATH)
    set(command ${STEPRT_HOST_COMMAND})
  elseif(NOT command AND TARGET steprt::command)
    set(command steprt::command)
  endif()
  if(NOT command AND CMAKE_CROSSCOMPILING)
    message(FATAL_ERROR "steprt_add_schema: a cross build needs the command steprt of the build machine, and PATH has "
                        "none. Set STEPRT_COMMAND to one.")
  elseif(NOT command)
    message(FATAL_ERROR "steprt_add_schema: this steprt was built without the command steprt (it needs CLI11 and "
                        "nlohmann-json). Set STEPRT_COMMAND to one.")
  endif()
  set(${out} ${command} PARENT_SCOPE)
endfunction()

function(steprt_add_schema target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "MODULE" "NAMESPACE;PARTS;FIRST_TYPE" "ENTITIES")
  if(NOT arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "steprt_add_schema(${target}): no file")
  endif()
  set(schemas "")
  foreach(file IN LISTS arg_UNPARSED_ARGUMENTS)
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    list(APPEND schemas ${file})
  endforeach()
  if(NOT arg_NAMESPACE)
    set(arg_NAMESPACE ${target})
  endif()
  if(NOT arg_PARTS)
    set(arg_PARTS 4)
  endif()
  set(options --namespace ${arg_NAMESPACE} --parts ${arg_PARTS})
  if(arg_ENTITIES)
    list(JOIN arg_ENTITIES "," names)
    list(APPEND options --entities ${names})
  endif()
  if(DEFINED arg_FIRST_TYPE)
    list(APPEND options --first-type ${arg_FIRST_TYPE})
  endif()

  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_schema)
  string(REPLACE "::" "_" stem ${arg_NAMESPACE})
  set(files ${folder}/${stem}.h ${folder}/${stem}.cpp)
  foreach(part RANGE 1 ${arg_PARTS})
    list(APPEND files ${folder}/${stem}_${part}.cpp)
  endforeach()
  set(kind STATIC)
  if(arg_MODULE)
    list(APPEND options --module)
    list(APPEND files ${folder}/${stem}_module.cpp)
    set(kind MODULE)
  endif()

  steprt_find_command(command)
  add_custom_command(
    OUTPUT ${files}
    COMMAND ${command} compile ${schemas} ${options} --out ${folder}
    DEPENDS ${schemas} ${command}
    COMMENT "Compiling schema ${arg_NAMESPACE}"
    VERBATIM)
  add_library(${target} ${kind} ${files})
  target_include_directories(${target} PUBLIC ${folder})
  target_link_libraries(${target} PUBLIC steprt::steprt)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  if(arg_MODULE)
    # A unique symbol, which templates of the standard library make, would keep the module from being unloaded.
    set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
  endif()
endfunction()
