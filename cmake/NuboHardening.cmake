# SPDX-License-Identifier: MIT
# What makes a mistake with memory harder to abuse, in every optimised build: fortified functions of
# the C library need the optimiser, and the sanitizers find more by themselves. A distribution that
# builds without a build type, as Debian does, brings flags of its own.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(is_hardened "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
if(NUBO_SANITIZE)
    set(is_hardened 0)
endif()

target_compile_definitions(nubo_options INTERFACE $<${is_hardened}:_FORTIFY_SOURCE=2>)
# Control flow is protected by another flag on each kind of processor, and on some by none.
foreach(flag IN ITEMS -fstack-protector-strong -fstack-clash-protection -fcf-protection
                      -mbranch-protection=standard)
    string(MAKE_C_IDENTIFIER "NUBO_HAS${flag}" is_known)
    check_cxx_compiler_flag(${flag} ${is_known})
    if(${is_known})
        target_compile_options(nubo_options INTERFACE $<${is_hardened}:${flag}>)
    endif()
endforeach()
target_link_options(nubo_options INTERFACE $<${is_hardened}:LINKER:-z,relro,-z,now>)
