# What is delivered for Windows: a zip to unpack anywhere, made by cpack, and an installer, made by
# makensis from the script that is prepared here. Both hold the programs, the manual, an example and
# the licences.
set(manual ${PROJECT_SOURCE_DIR}/docs/manuale)
set(style ${PROJECT_SOURCE_DIR}/packaging/linux/manuale-stile.html)
find_program(PANDOC_PROGRAM pandoc REQUIRED)
file(GLOB pictures CONFIGURE_DEPENDS ${manual}/immagini/*)
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/manuale.html
  COMMAND ${PANDOC_PROGRAM} --standalone --self-contained --toc --toc-depth=2 --metadata lang=it
          --metadata pagetitle=Saldoro --variable toc-title=Indice --resource-path ${manual}
          --include-in-header ${style} --output ${PROJECT_BINARY_DIR}/manuale.html
          ${manual}/manuale.md
  DEPENDS ${manual}/manuale.md ${style} ${pictures}
  VERBATIM)
add_custom_target(windows_manual ALL DEPENDS ${PROJECT_BINARY_DIR}/manuale.html)

install(TARGETS Saldoro saldoro-appalti saldoro-archivio RUNTIME DESTINATION .)
install(FILES ${PROJECT_BINARY_DIR}/manuale.html DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/demo/ DESTINATION esempio)

# The programs have their libraries in them, whose licences want these texts handed out too.
set(SALDORO_LICENCES ${PROJECT_BINARY_DIR}/licenze)
configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/licenze.txt.in
  ${SALDORO_LICENCES}/LEGGIMI.txt @ONLY NEWLINE_STYLE WIN32)
file(COPY_FILE /usr/share/common-licenses/LGPL-3 ${SALDORO_LICENCES}/LGPL-3.txt)
file(COPY_FILE /usr/share/common-licenses/GPL-3 ${SALDORO_LICENCES}/GPL-3.txt)
file(COPY_FILE /usr/share/doc/qt6-base-dev/copyright ${SALDORO_LICENCES}/Qt.txt)
file(COPY_FILE /usr/share/doc/g++-mingw-w64-x86-64-posix/copyright ${SALDORO_LICENCES}/GCC.txt)
file(COPY_FILE /usr/share/doc/mingw-w64-common/copyright ${SALDORO_LICENCES}/MinGW-w64.txt)
install(DIRECTORY ${SALDORO_LICENCES} DESTINATION .)

set(delivered Saldoro-${PROJECT_VERSION}-win64)
set(SALDORO_PROGRAM ${PROJECT_BINARY_DIR}/src/app/Saldoro.exe)
set(SALDORO_CONTRACTS ${PROJECT_BINARY_DIR}/src/office/saldoro-appalti.exe)
set(SALDORO_COMPANION ${PROJECT_BINARY_DIR}/src/archivio/saldoro-archivio.exe)
set(SALDORO_MANUAL ${PROJECT_BINARY_DIR}/manuale.html)
set(SALDORO_EXAMPLE ${PROJECT_SOURCE_DIR}/demo)
set(SALDORO_ICON ${PROJECT_SOURCE_DIR}/packaging/saldoro.ico)
set(SALDORO_INSTALLER ${PROJECT_BINARY_DIR}/${delivered}-installa.exe)
configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/installer.nsi.in
  ${PROJECT_BINARY_DIR}/installer.nsi @ONLY)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME Saldoro)
set(CPACK_PACKAGE_VENDOR Saldoro)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_FILE_NAME ${delivered})
include(CPack)
