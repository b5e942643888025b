# Presets for work on the code make errors of warnings; elsewhere a later compiler may have new ones.
# The sanitizers are a choice of the whole build. No file names the folder that it was built in.

add_compile_options(
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast> $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>)

# GCC 12 takes appended strings for overlapping ones when it optimises.
add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)

if(TABULORIX_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# Comparisons are not traced: the dictionaries know the words, and three times as many inputs are
# tried.
if(TABULORIX_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()
