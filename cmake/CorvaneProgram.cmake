# corvane_program(NAME): installs the program where its lists go and links to it from bin; building it places
# the lists beside it. The program finds its folder through /proc/self/exe, so the link works.
set(CORVANE_PROGRAM_DIR lib/corvane)

function(corvane_program NAME)
    add_dependencies(${NAME} corvane_lists)
    # A program that was not built is left out.
    install(TARGETS ${NAME} RUNTIME DESTINATION ${CORVANE_PROGRAM_DIR} OPTIONAL)
    if(NOT WIN32)
        install(CODE "
set(top \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
if(EXISTS \"\${top}/${CORVANE_PROGRAM_DIR}/${NAME}\")
    file(MAKE_DIRECTORY \"\${top}/bin\")
    file(CREATE_LINK ../${CORVANE_PROGRAM_DIR}/${NAME} \"\${top}/bin/${NAME}\" SYMBOLIC)
endif()")
    endif()
endfunction()
