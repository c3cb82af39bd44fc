# What a build for Windows needs besides the toolchain: programs that stand alone, and off-screen
# windows for those that are run without a display.
add_link_options(-static)
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  add_link_options(-s)
endif()

# saldoro_off_screen(<target>...): the target can show its windows off screen.
function(saldoro_off_screen)
  foreach(target IN LISTS ARGN)
    qt_import_plugins(${target} INCLUDE Qt6::QOffscreenIntegrationPlugin)
  endforeach()
endfunction()

# saldoro_program_resource(<target> <version>): gives the executable its version resource, the
# manifest that states its awareness of high resolutions, and the icon where there is one.
function(saldoro_program_resource target version)
  set(folder ${PROJECT_BINARY_DIR}/resources/${target})
  string(REGEX MATCH "^([0-9]+)\\.([0-9]+)\\.([0-9]+)$" matched ${version})
  set(RC_MAJOR ${CMAKE_MATCH_1})
  set(RC_MINOR ${CMAKE_MATCH_2})
  set(RC_REVISION ${CMAKE_MATCH_3})
  set(RC_NAME ${target})
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest.in
    ${folder}/program.manifest @ONLY)
  set(SALDORO_MANIFEST_LINE "1 RT_MANIFEST \"${folder}/program.manifest\"")
  set(icon ${PROJECT_SOURCE_DIR}/packaging/saldoro.ico)
  if(EXISTS ${icon})
    set(SALDORO_ICON_LINE "1 ICON \"${icon}\"")
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${folder}/program.rc @ONLY)
  target_sources(${target} PRIVATE ${folder}/program.rc)
endfunction()
