# SPDX-License-Identifier: MIT
# What makes the daily build faster where it is installed. Only the presets for development include
# this: whoever else builds the tool chooses a compiler cache and a linker himself.

find_program(NUBO_CCACHE ccache)
if(NUBO_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${NUBO_CCACHE})
endif()

# The tests are many programs, and this linker needs a fifth of the default one's time.
find_program(NUBO_LLD ld.lld)
if(NUBO_LLD)
    add_link_options(-fuse-ld=lld)
endif()
