# Installs the library, its headers, a CMake package (target Kalodata::kalodata) and a pkg-config file.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Kalodata)

install(TARGETS kalodata EXPORT KalodataTargets)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/kalodata DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT KalodataTargets NAMESPACE Kalodata:: FILE KalodataConfig.cmake DESTINATION ${package_folder})

write_basic_package_version_file(KalodataConfigVersion.cmake COMPATIBILITY SameMajorVersion)
configure_file(${PROJECT_SOURCE_DIR}/cmake/kalodata.pc.in kalodata.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KalodataConfigVersion.cmake DESTINATION ${package_folder})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kalodata.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
