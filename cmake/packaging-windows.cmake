# The packages for Windows: a zip to unpack anywhere, and an installer that asks nothing but the
# folder. Both hold the program and how to use it.
install(TARGETS Saldoro RUNTIME DESTINATION . COMPONENT program)

set(CPACK_PACKAGE_NAME Saldoro)
set(CPACK_PACKAGE_VENDOR Saldoro)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_FILE_NAME "Saldoro-${PROJECT_VERSION}-win64")
set(CPACK_PACKAGE_INSTALL_DIRECTORY Saldoro)
set(CPACK_COMPONENTS_ALL program)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
include(CPack)
