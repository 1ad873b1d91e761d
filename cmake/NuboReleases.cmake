# SPDX-License-Identifier: MIT
# The releases, as the changelog lists them.

# nubo_read_releases(OUTPUT_VARIABLE CHANGELOG)
#
# Stores the releases as elements of AppStream, the newest first. Refuses a changelog whose newest
# release is not the version of the project.
function(nubo_read_releases output_variable changelog)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
    # Of brackets CMake's lists make something else than text.
    file(READ ${changelog} text)
    string(REGEX MATCHALL "\n## .[0-9]+[.][0-9]+[.][0-9]+. - [0-9-]+" headings "${text}")
    set(releases)
    foreach(heading IN LISTS headings)
        string(REGEX MATCH "([0-9.]+). - ([0-9-]+)" heading "${heading}")
        if(NOT releases AND NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
            message(FATAL_ERROR "The newest release of ${changelog} is ${CMAKE_MATCH_1}, but "
                                "CMakeLists.txt says ${PROJECT_VERSION}.")
        endif()
        string(APPEND releases
               "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>\n")
    endforeach()
    if(NOT releases)
        message(FATAL_ERROR "${changelog} has no release, \"## [${PROJECT_VERSION}] - DATE\".")
    endif()
    set(${output_variable} "${releases}" PARENT_SCOPE)
endfunction()
