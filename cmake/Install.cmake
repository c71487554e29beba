# What `cmake --install` puts where.
#
# The program looks for its sounds beside itself, in ../share/korvane/sounds. So "share" keeps its
# distance from the program's folder whatever the prefix is, and whatever a packager calls the rest.

include(GNUInstallDirs)
cmake_path(SET share NORMALIZE "${CMAKE_INSTALL_BINDIR}/../share")
set(application com.VNT.Korvane)

install(TARGETS korvane RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(DIRECTORY resources/sounds DESTINATION "${share}/korvane" FILES_MATCHING PATTERN "*.wav")

# Menus and the autostart of a session do not know every folder in which a program may lie, so the
# entry names it by its whole path. That is known when it is installed, and no sooner. By that path, too,
# KWin knows the program that the entry lets list windows and type keys.
install(CODE "
  cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX NORMALIZE OUTPUT_VARIABLE prefix)
  cmake_path(APPEND prefix \"${CMAKE_INSTALL_BINDIR}\" korvane OUTPUT_VARIABLE KORVANE_PROGRAM)
  configure_file(\"${CMAKE_CURRENT_SOURCE_DIR}/resources/${application}.desktop.in\"
    \"${CMAKE_CURRENT_BINARY_DIR}/${application}.desktop\" @ONLY)
")
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${application}.desktop" DESTINATION "${share}/applications")
install(FILES resources/com.vnt.Korvane.metainfo.xml DESTINATION "${share}/metainfo")

set(icons "${share}/icons/hicolor")
install(FILES resources/icon/korvane.svg DESTINATION "${icons}/scalable/apps" RENAME ${application}.svg)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES resources/icon/${size}.png DESTINATION "${icons}/${size}x${size}/apps"
    RENAME ${application}.png)
endforeach()

install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE DESTINATION "${share}/doc/korvane")
install(DIRECTORY docs DESTINATION "${share}/doc/korvane")
