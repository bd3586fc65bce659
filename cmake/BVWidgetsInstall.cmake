# SPDX-License-Identifier: MIT
# Install rules: library, headers, CMake package, pkg-config file.
include(CMakePackageConfigHelpers)

set(BVWIDGETS_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/Presentation_BVWidgets")

# Libraries installed together find each other; an application's own services stay where they are.
set(installed_libraries Presentation_BVWidgets)
if(BVWIDGETS_PLATFORM_DIR)
    set_target_properties(Presentation_BVWidgets PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
else()
    list(APPEND installed_libraries ${BVWIDGETS_PLATFORM_SERVICES})
endif()
set_target_properties(${installed_libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")

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

# The pkg-config file finds the prefix from its own place, so that an installation can be moved.
file(RELATIVE_PATH BVWIDGETS_PC_PREFIX
     "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
list(TRANSFORM BVWIDGETS_FLOORS PREPEND "-I\${includedir}/Presentation_BVWidgets/" OUTPUT_VARIABLE pc_cflags)
list(PREPEND pc_cflags "-I\${includedir}" "-I\${includedir}/Presentation_BVWidgets")
if(BVWIDGETS_PLATFORM_DIR)
    list(TRANSFORM BVWIDGETS_PLATFORM_SERVICES REPLACE "(.+)" "$<TARGET_FILE:Brimvale::\\1>"
         OUTPUT_VARIABLE pc_libs)
    list(TRANSFORM BVWIDGETS_PLATFORM_SERVICES
         REPLACE "(.+)" "$<TARGET_PROPERTY:Brimvale::\\1,INTERFACE_INCLUDE_DIRECTORIES>"
         OUTPUT_VARIABLE service_includes)
    # The toolkit's folders come from its own packages.
    set(service_includes "$<REMOVE_DUPLICATES:$<FILTER:${service_includes},EXCLUDE,^/usr/(include|lib)>>")
    list(APPEND pc_cflags "-I$<JOIN:${service_includes}, -I>")
else()
    list(TRANSFORM BVWIDGETS_PLATFORM_SERVICES PREPEND "-l" OUTPUT_VARIABLE pc_libs)
    list(APPEND pc_cflags "-I\${includedir}/Presentation_BVWidgets/platform")
endif()
string(REPLACE ";-I" " -I" BVWIDGETS_PC_CFLAGS "${pc_cflags}")
list(JOIN pc_libs " " BVWIDGETS_PC_LIBS)
configure_file("${CMAKE_CURRENT_LIST_DIR}/Presentation_BVWidgets.pc.in"
               "${PROJECT_BINARY_DIR}/Presentation_BVWidgets.pc.configured" @ONLY)
file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/Presentation_BVWidgets.pc"
     INPUT "${PROJECT_BINARY_DIR}/Presentation_BVWidgets.pc.configured")
install(FILES "${PROJECT_BINARY_DIR}/Presentation_BVWidgets.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)
