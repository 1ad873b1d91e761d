# SPDX-License-Identifier: MIT
# Renders SVG sources to the PNG pictures that the program carries.

find_program(NUBO_RSVG_CONVERT rsvg-convert REQUIRED)
find_program(NUBO_OPTIPNG optipng REQUIRED)

# nubo_render_artwork(OUTPUT_VARIABLE DIRECTORY SVG...)
#
# Renders each SVG into DIRECTORY as NAME.png (1x) and NAME@2x.png, and stores the list of the
# pictures in OUTPUT_VARIABLE.
function(nubo_render_artwork output_variable directory)
    file(MAKE_DIRECTORY ${directory})
    set(pictures)
    foreach(svg IN LISTS ARGN)
        cmake_path(GET svg STEM name)
        set(picture ${directory}/${name}.png)
        set(picture_2x ${directory}/${name}@2x.png)
        add_custom_command(
            OUTPUT ${picture} ${picture_2x}
            COMMAND ${NUBO_RSVG_CONVERT} --output ${picture} ${svg}
            COMMAND ${NUBO_RSVG_CONVERT} --zoom 2 --output ${picture_2x} ${svg}
            # A palette, where the colours allow it, makes the window's picture decode in half the
            # time, and so the tool start sooner.
            COMMAND ${NUBO_OPTIPNG} -quiet -o1 ${picture} ${picture_2x}
            DEPENDS ${svg}
            COMMENT "Rendering ${name}"
            VERBATIM)
        list(APPEND pictures ${picture} ${picture_2x})
    endforeach()
    set(${output_variable} ${pictures} PARENT_SCOPE)
endfunction()
