# What is installed on Linux, and the Debian package made of it (scripts/package.sh).
include(GNUInstallDirs)

set(source ${PROJECT_SOURCE_DIR}/packaging)
set(made ${PROJECT_BINARY_DIR}/packaging)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/saldoro)
file(MAKE_DIRECTORY ${made})
# Everything of the package that has to be made first, beside the programs.
add_custom_target(packaging_files ALL)

# Addresses of functions are settled before the program runs and then read-only.
target_link_options(Saldoro PRIVATE -Wl,-z,relro,-z,now)
target_link_options(saldoro-appalti PRIVATE -Wl,-z,relro,-z,now)
target_link_options(saldoro-archivio PRIVATE -Wl,-z,relro,-z,now)

# The program keeps the name that the suite knows it by; the lower-case one is for people.
install(TARGETS Saldoro saldoro-appalti saldoro-archivio RUNTIME)
file(CREATE_LINK Saldoro ${made}/saldoro SYMBOLIC)
install(FILES ${made}/saldoro DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES ${source}/linux/saldoro.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${source}/linux/saldoro.metainfo.xml.in ${made}/saldoro.metainfo.xml @ONLY)
install(FILES ${made}/saldoro.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${source}/saldoro.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 24 32 48 64 128 256)
  install(FILES ${source}/icons/saldoro-${size}.png RENAME saldoro.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()

# saldoro_gzipped(<file> <name> <folder>): installs the file compressed, the same bytes every time.
find_program(GZIP_PROGRAM gzip REQUIRED)
function(saldoro_gzipped file name folder)
  add_custom_command(OUTPUT ${made}/${name}.gz
    COMMAND sh -c "'${GZIP_PROGRAM}' -9nc '${file}' > '${made}/${name}.gz'"
    DEPENDS ${file} VERBATIM)
  add_custom_target(packaging_${name} DEPENDS ${made}/${name}.gz)
  add_dependencies(packaging_files packaging_${name})
  install(FILES ${made}/${name}.gz DESTINATION ${folder})
endfunction()

foreach(page saldoro saldoro-appalti saldoro-archivio)
  configure_file(${source}/linux/${page}.1.in ${made}/${page}.1 @ONLY)
  saldoro_gzipped(${made}/${page}.1 ${page}.1 ${CMAKE_INSTALL_MANDIR}/it/man1)
endforeach()
file(CREATE_LINK saldoro.1.gz ${made}/Saldoro.1.gz SYMBOLIC)
install(FILES ${made}/Saldoro.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/it/man1)
install(FILES ${source}/linux/saldoro-archivio.bash RENAME saldoro-archivio
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
saldoro_gzipped(${source}/linux/changelog changelog ${documents})
install(FILES ${source}/linux/copyright DESTINATION ${documents})
install(FILES ${source}/linux/lintian-overrides RENAME saldoro
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/demo/ DESTINATION ${documents}/examples)

# The manual as it is, and as a page for the browser where it can be made.
install(FILES ${PROJECT_SOURCE_DIR}/docs/manuale/manuale.md DESTINATION ${documents})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/manuale/immagini DESTINATION ${documents})
find_program(PANDOC_PROGRAM pandoc)
if(PANDOC_PROGRAM)
  add_custom_command(OUTPUT ${made}/manuale.html
    COMMAND ${PANDOC_PROGRAM} --standalone --metadata lang=it
            --metadata pagetitle=Saldoro
            --include-in-header ${source}/linux/manuale-stile.html
            --output ${made}/manuale.html ${PROJECT_SOURCE_DIR}/docs/manuale/manuale.md
    DEPENDS ${PROJECT_SOURCE_DIR}/docs/manuale/manuale.md ${source}/linux/manuale-stile.html
    VERBATIM)
  add_custom_target(packaging_manual DEPENDS ${made}/manuale.html)
  add_dependencies(packaging_files packaging_manual)
  install(FILES ${made}/manuale.html DESTINATION ${documents})
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME saldoro)
set(CPACK_PACKAGE_VENDOR Saldoro)
set(CPACK_PACKAGE_CONTACT "Saldoro <saldoro@localhost.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "payment ledger of a public-works contract (Italian)")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Saldoro keeps the payments of one public-works contract: the invoices of
professionals and companies, spread over the cost items of the budget.
It shows what was budgeted, paid and is still available of each item and
writes the statements of all payments as documents of the contract's
project. The program and its manual are in Italian.

saldoro-appalti lists the contracts and makes new ones from cells pasted
from a spreadsheet. saldoro-archivio checks a project's archives and lists
what needs care, fills them from CSV files and writes them out as such.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland, libreoffice-writer")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
