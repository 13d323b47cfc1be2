# What every target of this project has in common, in one place.

# corvane_instrument(target FLAGS...): compiles and links with these flags. No sanitizer's report is survived:
# one that only scrolls by would pass as success.
function(corvane_instrument target)
  target_compile_options(${target} PRIVATE ${ARGN} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(${target} PRIVATE ${ARGN})
endfunction()

# corvane_configure(target): language level, warnings as errors, Qt's code generators.
function(corvane_configure target)
  set_target_properties(${target} PROPERTIES
    AUTOMOC ON AUTOUIC ON AUTORCC ON
    CXX_EXTENSIONS OFF
    POSITION_INDEPENDENT_CODE ON
    RUNTIME_OUTPUT_DIRECTORY "${CORVANE_OUTPUT_DIR}"
    LIBRARY_OUTPUT_DIRECTORY "${CORVANE_OUTPUT_DIR}")
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror)
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS)
  if(CORVANE_SANITIZE)
    corvane_instrument(${target} -fsanitize=address,undefined,float-cast-overflow)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
      target_sources(${target} PRIVATE "${corvane_SOURCE_DIR}/checks/support/ubsanreports.cpp")
    endif()
  endif()
  if(CORVANE_FUZZ)
    corvane_instrument(${target}
      -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fprofile-instr-generate -fcoverage-mapping)
  endif()
endfunction()

# corvane_library(folder SOURCES... LINKS...): the library of one package folder. LINKS name the folders that
# it may include: the arrows of the house.
# Object libraries: a static archive would let the linker drop static initialisers.
function(corvane_library target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${target} OBJECT ${ARG_SOURCES})
  corvane_configure(${target})
  # The package's own symbols stay inside Corvane.so, apart from what a host calls. Exported statics of Qt's
  # templates would moreover be unique in the process and pin the library in it: it could never be unloaded.
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_include_directories(${target} PUBLIC "${corvane_SOURCE_DIR}")
  target_link_libraries(${target} PUBLIC ${ARG_LINKS})
endfunction()

# corvane_translation(source output): compiles a translation (.ts) into output (.qm).
# The compiler is looked for as a program: a cross build has no Qt tools of its target, and needs none.
find_program(CORVANE_LRELEASE NAMES lrelease lrelease-qt5 HINTS /usr/lib/qt5/bin REQUIRED)
function(corvane_translation source output)
  cmake_path(GET output PARENT_PATH folder)
  file(MAKE_DIRECTORY "${folder}")
  add_custom_command(OUTPUT "${output}"
    COMMAND "${CORVANE_LRELEASE}" -silent "${CMAKE_CURRENT_SOURCE_DIR}/${source}" -qm "${output}"
    DEPENDS "${source}"
    VERBATIM)
endfunction()
