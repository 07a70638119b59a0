# corvane_library(NAME FOLDER [SOURCES...] [LINKS targets...])
#
# One target a folder. A target sees the headers of its own folder and of the targets that it links, and no
# others: every folder's headers are reachable only through a directory of links of its own, so an include
# that does not run downward does not compile.
function(corvane_header_links NAME FOLDER)
    file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${FOLDER}/*.h")
    set(root "${PROJECT_BINARY_DIR}/include/${NAME}")
    file(MAKE_DIRECTORY "${root}/${FOLDER}")
    foreach(header ${headers})
        get_filename_component(file_name "${header}" NAME)
        file(CREATE_LINK "${header}" "${root}/${FOLDER}/${file_name}" COPY_ON_ERROR SYMBOLIC)
    endforeach()
endfunction()

function(corvane_library NAME FOLDER)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    corvane_header_links(${NAME} ${FOLDER})
    set(root "${PROJECT_BINARY_DIR}/include/${NAME}")
    if(ARG_SOURCES)
        add_library(${NAME} STATIC ${ARG_SOURCES})
        target_include_directories(${NAME} PUBLIC "${root}")
        target_link_libraries(${NAME} PUBLIC ${ARG_LINKS} PRIVATE corvane_warnings)
    else()
        add_library(${NAME} INTERFACE)
        target_include_directories(${NAME} INTERFACE "${root}")
        target_link_libraries(${NAME} INTERFACE ${ARG_LINKS})
    endif()
endfunction()
