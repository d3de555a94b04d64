# What a host gets: the library, its headers, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS quorixbizmodel EXPORT QuorixBizModelTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorix)
install(TARGETS quorixctl RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/libs/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorix
        FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quorix)
install(EXPORT QuorixBizModelTargets NAMESPACE Quorix:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QuorixBizModel)

configure_package_config_file(cmake/QuorixBizModelConfig.cmake.in ${CMAKE_BINARY_DIR}/QuorixBizModelConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QuorixBizModel)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/QuorixBizModelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/QuorixBizModelConfig.cmake ${CMAKE_BINARY_DIR}/QuorixBizModelConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QuorixBizModel)

configure_file(cmake/quorixbizmodel.pc.in ${CMAKE_BINARY_DIR}/quorixbizmodel.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/quorixbizmodel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
