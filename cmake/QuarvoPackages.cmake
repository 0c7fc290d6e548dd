# Debian packages: `cpack -G DEB` in a build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quarvo)
set(CPACK_PACKAGE_VENDOR "Quarvo")
set(CPACK_PACKAGE_CONTACT "Quarvo <packages@quarvo.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL core development)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://quarvo.example")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# From these files the tools that build a host's package know its dependencies.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# A later version with the same ABI will do.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# The widgets' package depends on the core's library, which is found in the build folder.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Updates the loader's cache, so that the packages need no scripts for it.
file(WRITE "${PROJECT_BINARY_DIR}/debian/triggers" "activate-noawait ldconfig\n")

# quarvo_package(COMPONENT NAME SECTION DESCRIPTION): defines a package.
macro(quarvo_package component name section description)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}")
endmacro()

# quarvo_library_package(COMPONENT NAME DESCRIPTION): defines the package of a library.
macro(quarvo_library_package component name description)
  quarvo_package(${component} ${name} libs ${description})
  set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${PROJECT_BINARY_DIR}/debian/triggers")
endmacro()

set(exactly "(= ${PROJECT_VERSION})")
quarvo_library_package(core libquarvocore${QUARVO_ABI_VERSION}
  "The part that needs no widgets, with texts and pictures, and the module for the desktop's key chain.")
# Qt needs this to read WebP.
set(CPACK_DEBIAN_CORE_PACKAGE_RECOMMENDS qt6-image-formats-plugins)
set(development_depends "libquarvocore${QUARVO_ABI_VERSION} ${exactly}")
if(QUARVO_BUILD_WIDGETS)
  list(APPEND CPACK_COMPONENTS_ALL widgets)
  quarvo_library_package(widgets libquarvo${QUARVO_ABI_VERSION} "Click button, embedded panel and popup for Qt Widgets.")
  set(CPACK_DEBIAN_WIDGETS_PACKAGE_DEPENDS "libquarvocore${QUARVO_ABI_VERSION} ${exactly}")
  string(APPEND development_depends ", libquarvo${QUARVO_ABI_VERSION} ${exactly}")
endif()
if(TARGET QuarvoQuick)
  list(APPEND CPACK_COMPONENTS_ALL quick)
  quarvo_package(quick qml6-module-quarvo libs "Button, panel and invisible verification for Qt Quick.")
  set(CPACK_DEBIAN_QUICK_PACKAGE_DEPENDS "libquarvocore${QUARVO_ABI_VERSION} ${exactly}, \
qml6-module-qtqml, qml6-module-qtqml-workerscript, qml6-module-qtquick, qml6-module-qtquick-templates, qml6-module-qtquick-window")
endif()
quarvo_package(development libquarvo-dev libdevel "Headers, static libraries and what CMake and pkg-config need.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${development_depends}, qt6-base-dev, zlib1g-dev${QUARVO_DEBIAN_PRIVATE}")
if(TARGET QuarvoQuick)
  # For programs with the QML module in them.
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS qt6-declarative-dev)
endif()

if(TARGET quarvo-sandbox)
  list(APPEND CPACK_COMPONENTS_ALL sandbox)
  quarvo_package(sandbox quarvo-sandbox devel "A local service that draws, judges and issues tokens, for tests of hosts.")
endif()
if(TARGET quarvo_designer)
  list(APPEND CPACK_COMPONENTS_ALL designer)
  quarvo_package(designer quarvo-designer devel "Click button and embedded panel in Qt Designer.")
endif()

include(CPack)
