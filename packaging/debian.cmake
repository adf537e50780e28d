# The Debian package, made by cpack from what is installed.
set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME dwindledial)
set(CPACK_PACKAGE_CONTACT ${DWINDLEDIAL_MAINTAINER})
set(CPACK_PACKAGE_HOMEPAGE_URL ${DWINDLEDIAL_WEBSITE_URL})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "visual count-down timer for classrooms, audiences and children")
set(CPACK_PACKAGE_DESCRIPTION
"The time that is left is a coloured wedge on a round 60-minute face, and it
shrinks to nothing; there are no digits. Everybody in the room sees at a
glance how much time remains.

The clock fills the screen on demand, its colours can be chosen, and a
count-down can be made into a movie for use in presentations.")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The toolkit's X11 plugin comes with its library; what talks to Wayland, plays sounds and opens web pages doesn't.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libcanberra-pulse, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

configure_file(symbols.cmake.in symbols.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_BINARY_DIR}/symbols.cmake)

# Files in the package carry the time of the release, so that the same sources give the same package.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/release_time.cmake)
file(WRITE ${CPACK_PROJECT_CONFIG_FILE} "set(ENV{SOURCE_DATE_EPOCH} ${release_seconds})\n")
include(CPack)
