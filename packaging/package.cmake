# The Debian package, made by "cpack --preset package". Two builds of the same sources are the same in all bits.
set(CPACK_PACKAGE_NAME halvern)
set(CPACK_PACKAGE_CONTACT "${HALVERN_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "analysis of sedimentation-velocity experiments")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Halvern analyses sedimentation-velocity experiments run in an analytical
ultracentrifuge: a series of radial scans of one cell, taken with the
absorbance or the interference optics.
.
Data of one rotor speed go from the scans over dc/dt to g(s*), its standard
errors and its averages; data of any number of speeds go to the wide
distribution. Interference scans are freed of jitter and of lost fringes.
One plot window shows every stage and is where positions are picked.
.
halvern is the program with its windows, halvern-replay runs the same
analysis from a script and needs no display, halvern-simulate writes the
scans of experiments whose answer is known. Three samples and a manual come
with them.")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The texts of windows and of paper are laid out for these letters; others of the toolkit's choice will do.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 1)
# Every file and every archive has the date of the sources.
set(CPACK_HALVERN_SOURCE_DATE ${HALVERN_SOURCE_DATE})
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/package_date.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/package_files.cmake)

include(CPack)
