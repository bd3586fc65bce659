# SPDX-License-Identifier: MIT
# Install rules: library, headers, CMake package, pkg-config file.
include(CMakePackageConfigHelpers)

set(BVWIDGETS_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/Presentation_BVWidgets")

install(TARGETS Presentation_BVWidgets EXPORT Presentation_BVWidgetsTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${BVWIDGETS_GENERATED_DIR}/BVWidgetsExport.h"
              "${BVWIDGETS_GENERATED_DIR}/BVWidgetsVersion.h"
        DESTINATION "${BVWIDGETS_INCLUDE_DIR}" COMPONENT Development)
install(EXPORT Presentation_BVWidgetsTargets NAMESPACE Brimvale::
        DESTINATION "${BVWIDGETS_CMAKE_DIR}" COMPONENT Development)

configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/Presentation_BVWidgetsConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/Presentation_BVWidgetsConfig.cmake"
    INSTALL_DESTINATION "${BVWIDGETS_CMAKE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/Presentation_BVWidgetsConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/Presentation_BVWidgetsConfig.cmake"
              "${PROJECT_BINARY_DIR}/Presentation_BVWidgetsConfigVersion.cmake"
        DESTINATION "${BVWIDGETS_CMAKE_DIR}" COMPONENT Development)

configure_file("${CMAKE_CURRENT_LIST_DIR}/Presentation_BVWidgets.pc.in"
               "${PROJECT_BINARY_DIR}/Presentation_BVWidgets.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/Presentation_BVWidgets.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)
