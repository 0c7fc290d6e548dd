include(CMakeDependentOption)

# The options of a build. A host that adds this folder to its own project gets only the library by default.
option(QUARVO_BUILD_WIDGETS "Build the widgets, not only the core" ON)
option(QUARVO_BUILD_QUICK "Build the QML module where Qt Quick is found" ON)
option(QUARVO_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
cmake_dependent_option(QUARVO_BUILD_EXAMPLES "Build the demo host" ${PROJECT_IS_TOP_LEVEL} QUARVO_BUILD_WIDGETS OFF)
cmake_dependent_option(QUARVO_BUILD_DESIGNER "Build the plugin for Qt Designer where its headers are"
  ${PROJECT_IS_TOP_LEVEL} QUARVO_BUILD_WIDGETS OFF)
cmake_dependent_option(QUARVO_BUILD_FUZZERS "Build the fuzz targets, which needs Clang" OFF QUARVO_BUILD_WIDGETS OFF)
cmake_dependent_option(QUARVO_BUILD_BENCH "Offer the benchmark: target quarvo-benches" OFF QUARVO_BUILD_WIDGETS OFF)
# Examples, tests, fuzz targets and the benchmark need the sandbox.
cmake_dependent_option(QUARVO_BUILD_SANDBOX "Build the local captcha service" ${PROJECT_IS_TOP_LEVEL}
  "NOT QUARVO_BUILD_EXAMPLES;NOT QUARVO_BUILD_TESTS;NOT QUARVO_BUILD_FUZZERS;NOT QUARVO_BUILD_BENCH" ON)
option(QUARVO_WARNINGS_AS_ERRORS "Stop at the first warning" OFF)
option(QUARVO_PRECOMPILE "Precompile Qt's headers" ON)
option(QUARVO_WITH_LIBSECRET "Keep the device identifier in the desktop's Secret Service" ON)
option(QUARVO_HARDEN "Use compiler and linker options that make memory errors hard to exploit" ${PROJECT_IS_TOP_LEVEL})
set(QUARVO_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")

# The addresses of the service. A deployment sets its own; QVSDKManager can replace them at run time.
set(QUARVO_API_HOST "https://api.quarvo.example" CACHE STRING "Host of the captcha service")
set(QUARVO_DOWNLOAD_HOST "https://download.quarvo.example" CACHE STRING "Host of the outage switch")
set(QUARVO_IMAGE_HOST "https://image.quarvo.example" CACHE STRING "Host of outage pictures")
set(QUARVO_CDN "https://cdn.quarvo.example" CACHE STRING "Default base address of pictures")
set(QUARVO_HELP_PAGE "https://docs.quarvo.example/demonstration" CACHE STRING "Page that shows how to draw")
set(QUARVO_OUTAGE_HELP_PAGE "https://docs.quarvo.example/outage" CACHE STRING "Page on outage mode")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(quarvo_build_flags INTERFACE)
target_compile_definitions(quarvo_build_flags INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400 QUARVO_BUILD)
target_compile_options(quarvo_build_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow)
# Optimised for size, which makes the library a third smaller; most of the time is spent in the toolkit anyway.
# Sections let the linker remove functions that the library does not call.
target_compile_options(quarvo_build_flags INTERFACE
  $<$<CONFIG:Release>:-Os> $<$<CONFIG:Release>:-ffunction-sections> $<$<CONFIG:Release>:-fdata-sections>)
if(QUARVO_WARNINGS_AS_ERRORS)
  target_compile_options(quarvo_build_flags INTERFACE -Werror)
endif()
if(QUARVO_SANITIZE)
  target_compile_options(quarvo_build_flags INTERFACE
    -fsanitize=${QUARVO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quarvo_build_flags INTERFACE -fsanitize=${QUARVO_SANITIZE})
endif()
# Not with a sanitizer, which checks more, and conflicts with this.
if(QUARVO_HARDEN AND NOT QUARVO_SANITIZE AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
  target_compile_options(quarvo_build_flags INTERFACE
    -fstack-protector-strong -fstack-clash-protection
    # _FORTIFY_SOURCE needs optimisation.
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i[3-6]86")
    target_compile_options(quarvo_build_flags INTERFACE -fcf-protection)
  endif()
  target_link_options(quarvo_build_flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
endif()
