# Where an installation has its parts. Beside each other in lib/corvane, with links in bin, so that a prefix of the user's
# own can be carried around; or as a system has them (CORVANE_SYSTEM_LAYOUT): programs in bin, lists and help in
# share/corvane. Components: "console" and "desktop", the second needs the first.
if(CORVANE_SYSTEM_LAYOUT)
    set(CORVANE_PROGRAM_DIR bin)
    set(CORVANE_SHARED_DIR share/corvane)
    # Where Debian's zsh looks.
    set(CORVANE_ZSH_FOLDER vendor-completions)
else()
    set(CORVANE_PROGRAM_DIR lib/corvane)
    set(CORVANE_SHARED_DIR lib/corvane)
    set(CORVANE_ZSH_FOLDER site-functions)
endif()

# corvane_program(NAME COMPONENT): installs the program, and links to it from bin where it stands elsewhere; building it
# places the lists beside it. The program finds its folder through /proc/self/exe, so the link works.
function(corvane_program NAME COMPONENT)
    add_dependencies(${NAME} corvane_lists)
    # A program that was not built is left out.
    install(TARGETS ${NAME} RUNTIME DESTINATION ${CORVANE_PROGRAM_DIR} COMPONENT ${COMPONENT} OPTIONAL)
    if(NOT WIN32 AND NOT CORVANE_SYSTEM_LAYOUT)
        install(CODE "
set(top \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
if(EXISTS \"\${top}/${CORVANE_PROGRAM_DIR}/${NAME}\")
    file(MAKE_DIRECTORY \"\${top}/bin\")
    file(CREATE_LINK ../${CORVANE_PROGRAM_DIR}/${NAME} \"\${top}/bin/${NAME}\" SYMBOLIC)
endif()" COMPONENT ${COMPONENT})
    endif()
endfunction()

# corvane_install_manual(PAGE COMPONENT): a page of section 1; packed where a system has it.
function(corvane_install_manual PAGE COMPONENT)
    get_filename_component(page_name "${PAGE}" NAME)
    if(CORVANE_SYSTEM_LAYOUT)
        install(CODE "
set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/share/man/man1\")
file(MAKE_DIRECTORY \"\${folder}\")
execute_process(COMMAND gzip -9nc \"${PAGE}\" OUTPUT_FILE \"\${folder}/${page_name}.gz\" COMMAND_ERROR_IS_FATAL ANY)"
                COMPONENT ${COMPONENT})
    else()
        install(FILES "${PAGE}" DESTINATION share/man/man1 COMPONENT ${COMPONENT} OPTIONAL)
    endif()
endfunction()
