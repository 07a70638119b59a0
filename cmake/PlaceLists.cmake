# cmake -DFOLDER=folder -DFILES=file;file -P PlaceLists.cmake
#
# Puts each file into the folder under its own name, only where none stands: the lists belong to the user. A link
# that leads nowhere counts as standing. The copy takes its name when it is whole, so that a full disk leaves no
# cut list which would then be kept for good.
if(NOT FOLDER OR NOT FILES)
    message(FATAL_ERROR "PlaceLists.cmake needs FOLDER and FILES")
endif()
file(MAKE_DIRECTORY "${FOLDER}")
foreach(file IN LISTS FILES)
    get_filename_component(file_name "${file}" NAME)
    set(place "${FOLDER}/${file_name}")
    if(EXISTS "${place}" OR IS_SYMLINK "${place}")
        continue()
    endif()
    file(COPY_FILE "${file}" "${place}.placing")
    # A source tree may be read-only; the user's list must not be.
    file(CHMOD "${place}.placing" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    file(RENAME "${place}.placing" "${place}")
    message(STATUS "Placed ${place}")
endforeach()
