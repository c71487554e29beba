# What the C library knows of Wayland is the core protocol. Every further protocol is described by an
# XML file, from which wayland-scanner makes a header (NAME-client-protocol.h) and the tables that the
# library sends and reads by. Those that a Debian package ships are taken from there; of the others the
# facts of the wire stand in src/platform/wayland/protocols.

pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
pkg_get_variable(protocols wayland-protocols pkgdatadir)
find_package(PlasmaWaylandProtocols REQUIRED)
set(WAYLAND_PROTOCOLS_DIR "${protocols}")

# korvane_wayland_protocols(NAME files…): a library of the generated code of these descriptions. It is
# C, made by others, and none of our warnings hold for it.
function(korvane_wayland_protocols name)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${name}")
  file(MAKE_DIRECTORY "${folder}")
  set(generated)
  foreach(description ${ARGN})
    cmake_path(ABSOLUTE_PATH description)
    cmake_path(GET description STEM stem)
    set(header "${folder}/${stem}-client-protocol.h")
    set(code "${folder}/${stem}-protocol.c")
    add_custom_command(OUTPUT "${header}"
      COMMAND "${WAYLAND_SCANNER}" client-header "${description}" "${header}"
      DEPENDS "${description}" VERBATIM)
    add_custom_command(OUTPUT "${code}"
      COMMAND "${WAYLAND_SCANNER}" private-code "${description}" "${code}"
      DEPENDS "${description}" VERBATIM)
    list(APPEND generated "${header}" "${code}")
  endforeach()
  add_library(${name} STATIC ${generated})
  target_include_directories(${name} SYSTEM PUBLIC "${folder}")
  target_link_libraries(${name} PUBLIC PkgConfig::WAYLAND)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
endfunction()

file(GLOB ours CONFIGURE_DEPENDS src/platform/wayland/protocols/*.xml)
korvane_wayland_protocols(korvane-wayland-protocols ${ours}
  "${WAYLAND_PROTOCOLS_DIR}/stable/xdg-shell/xdg-shell.xml"
  "${WAYLAND_PROTOCOLS_DIR}/staging/xdg-activation/xdg-activation-v1.xml"
  "${PLASMA_WAYLAND_PROTOCOLS_DIR}/fake-input.xml"
  "${PLASMA_WAYLAND_PROTOCOLS_DIR}/plasma-window-management.xml")
