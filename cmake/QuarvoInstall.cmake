# `cmake --install` has these components: the core, the widgets, the files to build hosts with, the local
# service, and the plugin for Qt Designer.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(config_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Quarvo")
get_property(core_headers GLOBAL PROPERTY QUARVO_CORE_PUBLIC_HEADERS)
get_property(widgets_headers GLOBAL PROPERTY QUARVO_WIDGETS_PUBLIC_HEADERS)
set(QUARVO_USES_LIBSECRET OFF)
if(TARGET QuarvoSecrets)
  set(QUARVO_USES_LIBSECRET ON)
  set(QUARVO_PKGCONFIG_PRIVATE " -lsecret-1 -lgio-2.0 -lgobject-2.0 -lglib-2.0")
  set(QUARVO_DEBIAN_PRIVATE ", libsecret-1-dev")
  install(TARGETS QuarvoSecrets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/quarvo" COMPONENT core)
endif()

set(QUARVO_LIBRARIES QuarvoCore)
set(QUARVO_COMPONENTS Core Static)
set(pkgconfig_modules quarvo-core)
if(QUARVO_BUILD_WIDGETS)
  list(APPEND QUARVO_LIBRARIES Quarvo)
  list(APPEND QUARVO_COMPONENTS Widgets)
  list(APPEND pkgconfig_modules quarvo)
endif()
# The targets of each library are in a separate file, so that a host loads only those that it asks for.
set(QuarvoCore_component core)
set(Quarvo_component widgets)
foreach(library ${QUARVO_LIBRARIES})
  install(TARGETS ${library} EXPORT ${library}SharedTargets
          LIBRARY COMPONENT ${${library}_component} NAMELINK_COMPONENT development
          INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  install(TARGETS ${library}Static EXPORT ${library}StaticTargets
          ARCHIVE COMPONENT development
          INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  foreach(kind Shared Static)
    install(EXPORT ${library}${kind}Targets NAMESPACE Quarvo:: DESTINATION "${config_folder}" COMPONENT development)
  endforeach()
endforeach()
if(TARGET QuarvoQuick)
  # Where Qt looks for modules by itself, below its own prefix.
  set(QUARVO_QML_DIR "${CMAKE_INSTALL_LIBDIR}/qt6/qml" CACHE PATH "Where modules of QML go")
  file(RELATIVE_PATH core_from_module "${CMAKE_INSTALL_FULL_LIBDIR}/qt6/qml/Quarvo" "${CMAKE_INSTALL_FULL_LIBDIR}")
  set_target_properties(QuarvoQuick PROPERTIES INSTALL_RPATH "$ORIGIN/${core_from_module}")
  set(module_folder "${QUARVO_QML_DIR}/Quarvo")
  install(TARGETS QuarvoQuick LIBRARY DESTINATION "${module_folder}" COMPONENT quick)
  install(FILES "${PROJECT_BINARY_DIR}/qml/Quarvo/qmldir" "${PROJECT_BINARY_DIR}/qml/Quarvo/Quarvo.qmltypes"
          DESTINATION "${module_folder}" COMPONENT quick)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/quick/qml" DESTINATION "${module_folder}" COMPONENT quick)
  # Qt keeps the module's files and its entry in the list of plugins in objects, which the linker does not leave out.
  get_property(objects GLOBAL PROPERTY QuarvoQuickStatic_PARTS)
  install(TARGETS QuarvoQuickStatic ${objects} EXPORT QuarvoQuickStaticTargets
          ARCHIVE COMPONENT development
          OBJECTS DESTINATION "${CMAKE_INSTALL_LIBDIR}/quarvo" COMPONENT development)
  install(EXPORT QuarvoQuickStaticTargets NAMESPACE Quarvo:: DESTINATION "${config_folder}" COMPONENT development)
  list(APPEND QUARVO_COMPONENTS Quick)
endif()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/resources/QVKeychain.bundle"
                  "${PROJECT_SOURCE_DIR}/resources/QVResource.bundle"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/quarvo/${QUARVO_ABI_VERSION}" COMPONENT core)

install(FILES ${core_headers} ${widgets_headers} "${PROJECT_BINARY_DIR}/include/Quarvo/QuarvoVersion.h"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Quarvo" COMPONENT development)

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/QuarvoConfig.cmake.in"
                              "${PROJECT_BINARY_DIR}/QuarvoConfig.cmake" INSTALL_DESTINATION "${config_folder}")
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatibility SameMinorVersion)
else()
  set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file("${PROJECT_BINARY_DIR}/QuarvoConfigVersion.cmake" COMPATIBILITY ${compatibility})
install(FILES "${PROJECT_BINARY_DIR}/QuarvoConfig.cmake" "${PROJECT_BINARY_DIR}/QuarvoConfigVersion.cmake"
        DESTINATION "${config_folder}" COMPONENT development)

# Relative to the .pc file, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_pkgconfig "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
foreach(module ${pkgconfig_modules})
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${module}.pc.in" "${PROJECT_BINARY_DIR}/${module}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${module}.pc"
          DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endforeach()

if(TARGET quarvo-sandbox)
  install(TARGETS quarvo-sandbox RUNTIME COMPONENT sandbox)
endif()
if(TARGET quarvo_designer)
  install(TARGETS quarvo_designer LIBRARY DESTINATION "${QUARVO_DESIGNER_PLUGIN_DIR}" COMPONENT designer)
endif()

# If this is part of another project, that project makes the packages.
if(PROJECT_IS_TOP_LEVEL)
  include(QuarvoPackages)
endif()
