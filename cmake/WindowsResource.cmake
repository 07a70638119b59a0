# corvane_windows_resource(NAME DESCRIPTION): icon, version and manifest of a program, on Windows alone. One file for all of
# them: packaging/windows/corvane.rc.in.
function(corvane_windows_resource NAME DESCRIPTION)
    if(NOT WIN32)
        return()
    endif()
    set(CORVANE_PROGRAM "${NAME}")
    set(CORVANE_DESCRIPTION "${DESCRIPTION}")
    string(REPLACE "." "," CORVANE_VERSION_NUMBERS "${PROJECT_VERSION}.0")
    set(resource "${PROJECT_BINARY_DIR}/packaging/${NAME}.rc")
    configure_file("${PROJECT_SOURCE_DIR}/packaging/windows/corvane.rc.in" "${resource}" @ONLY)
    set_property(SOURCE "${resource}" PROPERTY OBJECT_DEPENDS
                 "${PROJECT_SOURCE_DIR}/packaging/windows/corvane.manifest;${PROJECT_SOURCE_DIR}/packaging/windows/corvane.ico")
    target_sources(${NAME} PRIVATE "${resource}")
endfunction()
