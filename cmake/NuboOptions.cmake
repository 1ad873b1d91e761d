# SPDX-License-Identifier: MIT
# What every target of the project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(nubo_options INTERFACE)
target_include_directories(nubo_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(
    nubo_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
                           -Woverloaded-virtual)
# GCC 12 sees overlapping copies in its own std::string when it optimises (its bug 105651).
target_compile_options(nubo_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_definitions(
    nubo_options
    INTERFACE QT_NO_CAST_FROM_ASCII
              QT_NO_CAST_TO_ASCII
              QT_NO_URL_CAST_FROM_STRING
              QT_NO_KEYWORDS
              QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
              QT_STRICT_ITERATORS
              QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# The sanitizers look at optimised code, with no more debug information than a report's lines need.
# In the tests, optimising would only take time to build.
if(NUBO_SANITIZE)
    set(is_test $<PATH:IS_PREFIX,${CMAKE_SOURCE_DIR}/tests,$<TARGET_PROPERTY:SOURCE_DIR>>)
    target_compile_options(
        nubo_options INTERFACE $<IF:${is_test},-O0,-O1> -fsanitize=${NUBO_SANITIZE}
                               -fno-sanitize-recover=all -fno-omit-frame-pointer
                               -gline-tables-only)
    target_link_options(nubo_options INTERFACE -fsanitize=${NUBO_SANITIZE})
endif()

# The camera's USB identity, for whoever needs it as a compile definition.
nubo_usb_digits(vendor NUBO_USB_VENDOR_ID)
nubo_usb_digits(product NUBO_USB_PRODUCT_ID)
add_library(nubo_usb_identity INTERFACE)
target_compile_definitions(
    nubo_usb_identity INTERFACE NUBO_USB_VENDOR_ID=0x${vendor}
                                NUBO_USB_PRODUCT_ID=0x${product})
