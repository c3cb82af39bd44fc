# Warnings, sanitizers and the shared settings of every target of the project.

add_library(saldoro_settings INTERFACE)
target_include_directories(saldoro_settings INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(saldoro_settings INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(saldoro_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU") # others do not know these
  target_compile_options(saldoro_settings INTERFACE -Wduplicated-cond -Wlogical-op)
endif()
if(SALDORO_STRICT)
  target_compile_options(saldoro_settings INTERFACE -Werror)
endif()
if(SALDORO_SANITIZE)
  target_compile_options(saldoro_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(saldoro_settings INTERFACE -fsanitize=address,undefined)
endif()
if(SALDORO_COVERAGE)
  target_compile_options(saldoro_settings INTERFACE --coverage -O0)
  target_link_options(saldoro_settings INTERFACE --coverage)
endif()

# saldoro_library(<folder> SOURCES ... LIBS ...): the one library of a folder under src/.
function(saldoro_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_library(saldoro_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(saldoro_${name} PUBLIC saldoro_settings ${ARG_LIBS})
endfunction()
