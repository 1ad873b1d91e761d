# SPDX-License-Identifier: MIT
# The camera's USB identity, as the options NUBO_USB_VENDOR_ID and NUBO_USB_PRODUCT_ID give it.

# nubo_usb_digits(OUTPUT_VARIABLE OPTION)
#
# Stores the value of the option as four lower-case digits without a prefix. Refuses what is no
# identifier of USB.
function(nubo_usb_digits output_variable option)
    set(digit "[0-9A-Fa-f]")
    if(NOT "${${option}}" MATCHES "^0[xX](${digit}${digit}?${digit}?${digit}?)$")
        message(FATAL_ERROR "${option} is \"${${option}}\". It has to be 0x and up to four "
                            "hexadecimal digits, such as 0x1209: `lsusb` lists those of all devices "
                            "after ID, as 1209:0001 (vendor:product).")
    endif()
    string(REGEX MATCH "....$" digits "000${CMAKE_MATCH_1}")
    string(TOLOWER ${digits} digits)
    set(${output_variable} ${digits} PARENT_SCOPE)
endfunction()

# nubo_configure_identity_file(INPUT OUTPUT)
#
# Fills in the identity as the file's reader compares it: @vendor@ and @product@ in lower case for
# udev, @VENDOR@ and @PRODUCT@ in upper case for the kernel's alias of a device.
function(nubo_configure_identity_file input output)
    nubo_usb_digits(vendor NUBO_USB_VENDOR_ID)
    nubo_usb_digits(product NUBO_USB_PRODUCT_ID)
    string(TOUPPER ${vendor} VENDOR)
    string(TOUPPER ${product} PRODUCT)
    configure_file(${input} ${output} @ONLY)
endfunction()
