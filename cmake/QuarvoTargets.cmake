# The Qt modules that the parts of src/ may use. The core cannot include the headers of widgets.
set(QUARVO_CORE_TOOLKIT Qt6::Gui Qt6::Network)
set(QUARVO_WIDGETS_TOOLKIT ${QUARVO_CORE_TOOLKIT} Qt6::Widgets)

# quarvo_objects(NAME SOURCES...): a part of src/, compiled once for all libraries that contain it. QUARVO_PART is
# CORE or WIDGETS.
function(quarvo_objects name)
  set(target quarvo_${name})
  add_library(${target} OBJECT ${ARGN})
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src" "${PROJECT_BINARY_DIR}/include")
  target_link_libraries(${target} PRIVATE quarvo_build_flags ${QUARVO_${QUARVO_PART}_TOOLKIT})
  quarvo_precompile(${target} ${QUARVO_PART})
endfunction()

# quarvo_room(NAME SOURCES...): one folder below src/. It is part of the shared and the static library.
function(quarvo_room name)
  quarvo_objects(${name} ${ARGN})
  set_property(GLOBAL APPEND PROPERTY QUARVO_${QUARVO_PART}_ROOMS quarvo_${name})
endfunction()

# quarvo_public_headers(HEADERS...): headers of a room that hosts include as <Quarvo/NAME>.
function(quarvo_public_headers)
  foreach(header ${ARGN})
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/${header}")
    file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/include/Quarvo/${header}" CONTENT "#include \"${source}\"\n")
    set_property(GLOBAL APPEND PROPERTY QUARVO_${QUARVO_PART}_PUBLIC_HEADERS "${source}")
  endforeach()
endfunction()

# quarvo_precompile(TARGET PART): precompiles Qt's headers, once for all targets of a PART (CORE or WIDGETS).
function(quarvo_precompile target part)
  if(NOT QUARVO_PRECOMPILE)
    return()
  endif()
  string(TOLOWER quarvo_${part}_precompiled precompiled)
  if(NOT TARGET ${precompiled})
    set(widgets)
    if(part STREQUAL "WIDGETS")
      set(widgets <QWidget>)
    endif()
    file(WRITE "${PROJECT_BINARY_DIR}/precompiled.cpp" "")
    add_library(${precompiled} OBJECT "${PROJECT_BINARY_DIR}/precompiled.cpp")
    # The host's project may have switched it on for all targets. This one needs no moc.
    set_target_properties(${precompiled} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${precompiled} PRIVATE quarvo_build_flags ${QUARVO_${part}_TOOLKIT})
    target_precompile_headers(${precompiled} PRIVATE
      <QEvent> <QNetworkReply> <QPainter> <QPainterPath> ${widgets}
      <chrono> <functional> <memory> <optional> <vector>)
  endif()
  target_precompile_headers(${target} REUSE_FROM ${precompiled})
  # The headers are precompiled with -fPIC. CMake would compile programs with -fPIE, which does not match.
  target_compile_options(${target} PRIVATE -fPIC)
endfunction()

# quarvo_tests(ROOM CLASSES...): links test classes, each from the file of its name, into one program. Each class
# is a CTest entry, which runs in its own process. QUARVO_PART is CORE or WIDGETS.
function(quarvo_tests room)
  set(target quarvo_tests_${room})
  list(TRANSFORM ARGN APPEND ".cpp" OUTPUT_VARIABLE sources)
  add_executable(${target} ${sources})
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  set(support quarvo_test_support)
  if(QUARVO_PART STREQUAL "CORE")
    set(support quarvo_core_test_support)
  endif()
  target_link_libraries(${target} PRIVATE ${support})
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # In a unity build GCC treats the included test files, and so their unnamed namespaces, as parts of a header.
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
  endif()
  quarvo_precompile(${target} ${QUARVO_PART})
  foreach(class ${ARGN})
    add_test(NAME ${room}/${class} COMMAND ${target} ${class})
    set_tests_properties(${room}/${class} PROPERTIES TIMEOUT 60)
  endforeach()
endfunction()
