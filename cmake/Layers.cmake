# Warnings and sanitizers that every target of ours gets. Qt asks for -fPIC; what doesn't use Qt gets
# it too, since targets share a precompiled header only where their flags agree.
add_library(orbkl4_flags INTERFACE)
target_compile_options(orbkl4_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -fPIC)
if(ORBKL4_WITH_FUZZ)
  # Coverage for the search, in every target that a fuzzer may link.
  target_compile_options(orbkl4_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(orbkl4_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps in std::string's operator+ that aren't there (its bug 105329).
  target_compile_options(orbkl4_flags INTERFACE -Wno-restrict)
endif()
if(CMAKE_UNITY_BUILD)
  # In a unit of several sources a local name may hide one of another file, and GCC takes a fixture
  # of one test file for one of a header. The linter turns the warning of hidden names on again.
  target_compile_options(orbkl4_flags INTERFACE
    -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(ORBKL4_SANITIZE)
  target_compile_options(orbkl4_flags INTERFACE
    -fsanitize=${ORBKL4_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(orbkl4_flags INTERFACE -fsanitize=${ORBKL4_SANITIZE})
endif()

# Headers that many sources use, precompiled so that a build is fast. A source includes what it uses
# all the same: the linter compiles units of sources without them.
set(orbkl4_std_headers <algorithm> <array> <chrono> <cmath> <cstdint> <filesystem> <fstream>
  <functional> <memory> <optional> <random> <span> <sstream> <stdexcept> <string> <string_view>
  <utility> <vector>)
set(orbkl4_qt_headers <QApplication> <QDir> <QFile> <QGridLayout> <QGroupBox> <QKeyEvent> <QLabel>
  <QLineEdit> <QMenu> <QMessageBox> <QPainter> <QPointer> <QProgressBar> <QPushButton>
  <QRegularExpression> <QSerialPort> <QTimer>)

# orbkl4_layer(NAME [MOC] GLOBS pattern... USES target...)
# One layer of the program: every source that the patterns find, seen below src/ only by the
# targets named in USES, so that an include that points upwards does not link.
function(orbkl4_layer name)
  cmake_parse_arguments(LAYER "MOC" "" "GLOBS;USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${LAYER_GLOBS})
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC orbkl4_flags ${LAYER_USES})
  if(LAYER_MOC)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()
