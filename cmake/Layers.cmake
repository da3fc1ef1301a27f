# Warnings and sanitizers that every target of ours gets.
add_library(orbkl4_flags INTERFACE)
target_compile_options(orbkl4_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Werror)
if(ORBKL4_WITH_FUZZ)
  # Coverage for the search, in every target that a fuzzer may link.
  target_compile_options(orbkl4_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(orbkl4_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps in std::string's operator+ that aren't there (its bug 105329).
  target_compile_options(orbkl4_flags INTERFACE -Wno-restrict)
endif()
if(ORBKL4_SANITIZE)
  target_compile_options(orbkl4_flags INTERFACE
    -fsanitize=${ORBKL4_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(orbkl4_flags INTERFACE -fsanitize=${ORBKL4_SANITIZE})
endif()

# orbkl4_layer(NAME [MOC] GLOBS pattern... USES target...)
# One layer of the program: every source that the patterns find, seen below src/ only by the
# targets named in USES, so that an include that points upwards does not link.
function(orbkl4_layer name)
  cmake_parse_arguments(LAYER "MOC" "" "GLOBS;USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${LAYER_GLOBS})
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE ${LAYER_USES})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC orbkl4_flags ${LAYER_USES})
  if(LAYER_MOC)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()
