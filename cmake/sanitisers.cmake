# Sanitisers for every target of the tree: STEPRT_SANITIZE=address,undefined,leak. What they find ends the program.
set(STEPRT_SANITIZE "" CACHE STRING "Sanitisers, as -fsanitize takes them; empty for none")

if(STEPRT_SANITIZE)
  add_compile_options(-fsanitize=${STEPRT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${STEPRT_SANITIZE})
endif()
