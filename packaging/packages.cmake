# The Debian packages, by CPack's generator DEB: "corvane" with windows, and "corvane-console" without Qt, which also
# brings the lists. Configured by packaging/build_packages; for a build with CORVANE_SYSTEM_LAYOUT.
set(CORVANE_CONTACT "Corvane authors <corvane@example.org>" CACHE STRING "Name and address in the packages")
set(CORVANE_PACKAGE_REVISION 1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VENDOR Corvane)
set(CPACK_PACKAGE_CONTACT "${CORVANE_CONTACT}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL desktop console)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CORVANE_PACKAGE_REVISION})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# What the programs link, with the versions that they need.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
if(CORVANE_WEB_PAGE)
    set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${CORVANE_WEB_PAGE}")
endif()

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME corvane)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "corvane-console (= ${PROJECT_VERSION}-${CORVANE_PACKAGE_REVISION})")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS "fonts-wqy-microhei | fonts-noto-cjk, qt6-wayland, gvfs")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SUGGESTS "p7zip-full, poppler-utils, rar")
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "find files of the same content and remove copies
Corvane lists every file below the directories that you pick, compares them
exactly, byte by byte where it matters, and shows the copies as pairs. Those
that you mark go to the trash or for good; right before a file goes, another
one of the same content is proven to stay. It looks into ZIP and RAR archives,
finds empty directories and files of one name, and exports lists. The windows
speak Chinese and English.")

set(CPACK_DEBIAN_CONSOLE_PACKAGE_NAME corvane-console)
set(CPACK_DEBIAN_CONSOLE_PACKAGE_SUGGESTS "corvane, p7zip-full, rar")
set(CPACK_COMPONENT_CONSOLE_DESCRIPTION "find files of the same content, for terminals and scripts
Prints which files below directories are equal, exactly compared, as pairs,
groups, JSON, CSV or a page for the browser. It removes nothing, unless it is
driven by a script, and needs neither display nor desktop.")

foreach(component desktop console)
    string(TOUPPER ${component} upper)
    set(folder share/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    install(FILES copyright DESTINATION ${folder} COMPONENT ${component})
    install(CODE "
set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}\")
file(MAKE_DIRECTORY \"\${folder}\")
execute_process(COMMAND gzip -9nc \"${PROJECT_BINARY_DIR}/packaging/changelog\"
                OUTPUT_FILE \"\${folder}/changelog.Debian.gz\" COMMAND_ERROR_IS_FATAL ANY)" COMPONENT ${component})
endforeach()
configure_file(changelog.in "${PROJECT_BINARY_DIR}/packaging/changelog" @ONLY)
include(CPack)
