# SPDX-License-Identifier: MIT
# Renders SVG sources to the pictures that the program carries.

find_program(NUBO_RSVG_CONVERT rsvg-convert REQUIRED)

# nubo_render_artwork(OUTPUT_VARIABLE DIRECTORY SVG...)
#
# Renders each SVG into DIRECTORY as NAME (1x) and NAME@2x, packed by nubo-pack-artwork, and stores
# the list of the pictures in OUTPUT_VARIABLE.
function(nubo_render_artwork output_variable directory)
    file(MAKE_DIRECTORY ${directory})
    set(pictures)
    foreach(svg IN LISTS ARGN)
        cmake_path(GET svg STEM name)
        foreach(zoom IN ITEMS 1 2)
            set(picture ${directory}/${name})
            if(zoom EQUAL 2)
                string(APPEND picture @2x)
            endif()
            add_custom_command(
                OUTPUT ${picture} ${picture}.png
                COMMAND ${NUBO_RSVG_CONVERT} --zoom ${zoom} --output ${picture}.png ${svg}
                # What Qt's own threads do is no finding of the thread sanitizer.
                COMMAND ${CMAKE_COMMAND} -E env TSAN_OPTIONS=ignore_noninstrumented_modules=1
                        $<TARGET_FILE:nubo-pack-artwork> ${picture}.png ${picture}
                DEPENDS ${svg} nubo-pack-artwork
                COMMENT "Rendering ${name} at ${zoom}x"
                VERBATIM)
            list(APPEND pictures ${picture})
        endforeach()
    endforeach()
    set(${output_variable} ${pictures} PARENT_SCOPE)
endfunction()
