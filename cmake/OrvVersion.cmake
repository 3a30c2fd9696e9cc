# The version and the program's data folder, told to the code through one
# generated header, orv_version.h, of the interface target orv_version.
include(GNUInstallDirs)

set(ORV_DATA_INSTALL_DIR ${CMAKE_INSTALL_DATADIR}/orvantis-hd)
file(RELATIVE_PATH ORV_DATA_FROM_PROGRAM
     ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}
     ${CMAKE_INSTALL_PREFIX}/${ORV_DATA_INSTALL_DIR})
# The programs of the build folder sit one level down (app/, cli/), so the
# same relative path from them names the build folder's data.
get_filename_component(ORV_BUILD_DATA_DIR
    ${PROJECT_BINARY_DIR}/app/${ORV_DATA_FROM_PROGRAM} ABSOLUTE)

configure_file(${CMAKE_CURRENT_LIST_DIR}/orv_version.h.in
               ${PROJECT_BINARY_DIR}/generated/orv_version.h @ONLY)
add_library(orv_version INTERFACE)
target_include_directories(orv_version INTERFACE ${PROJECT_BINARY_DIR}/generated)
