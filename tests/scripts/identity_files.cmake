# SPDX-License-Identifier: MIT
# cmake -DNUBO_USB_VENDOR_ID=… -DNUBO_USB_PRODUCT_ID=… -DOUTPUT=DIRECTORY -P identity_files.cmake
# writes the files that name the camera's identity.
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/NuboUsbIdentity.cmake)
set(packaging ${CMAKE_CURRENT_LIST_DIR}/../../packaging)
foreach(file IN ITEMS 70-nubo-setting-tool.rules metainfo.xml)
    nubo_configure_identity_file(${packaging}/${file}.in ${OUTPUT}/${file})
endforeach()
