# The packages: vireo_VERSION_ARCHITECTURE.deb and vireo-VERSION-linux-MACHINE.tar.gz, both of what
# is installed. packaging/linux/build makes them.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME vireo)
set(CPACK_PACKAGE_VENDOR "The Vireo developers")
set(CPACK_PACKAGE_CONTACT ${VIREO_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "viewer for test results of wide-format scanners")
set(CPACK_PACKAGE_DESCRIPTION
"Vireo shows the result files that test programs of wide-format scanners
write: oscilloscope recordings, light profiles, MTF measurements, noise,
stitch, star and tonal resolution tests, adjustment tests, TIFF pictures and
packed dumps. Traces and pictures are measured, zoomed and printed; files of
gigabytes open at once.
.
vireo-cli gives the same figures as JSON, the same plots as PNG, SVG or PDF
and the values as CSV, for scripts and production lines.")
set(CPACK_PACKAGE_FILE_NAME
    vireo-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The plots' and the printed pages' fonts; without any, texts would be empty boxes.
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/FinishPackage.cmake)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/PackageFiles.cmake)
file(CONFIGURE OUTPUT PackageFiles.cmake CONTENT
     "set(VIREO_DEBIAN_CHANGELOG \"${CMAKE_CURRENT_BINARY_DIR}/changelog\")\n" @ONLY)
include(CPack)
