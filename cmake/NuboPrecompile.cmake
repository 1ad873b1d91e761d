# SPDX-License-Identifier: MIT
# Precompiled headers, for Clang: a dialog of 26 lines is 104,000 lines behind its includes, and Clang
# loads of a precompiled header what a file uses. GCC maps an image of its whole memory (140 MB for
# half a dozen of Qt's headers), which has cost more than it saved. So every file is compiled without,
# too, and includes what it uses.
if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

set(NUBO_CORE_HEADERS <algorithm> <array> <chrono> <functional> <memory> <optional> <vector>
                      <QByteArray> <QList> <QObject> <QString> <QUuid> <QVariant>)
set(NUBO_WIDGET_HEADERS ${NUBO_CORE_HEADERS} <QDialog> <QFormLayout> <QLabel> <QLineEdit> <QPainter>
                        <QPushButton> <QRadioButton>)
set(NUBO_TEST_HEADERS ${NUBO_WIDGET_HEADERS} <QApplication> <QTest>)

# Nothing but a header for others to reuse.
function(nubo_add_precompiled name)
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    cmake_parse_arguments(PCH "" "" "HEADERS;LIBRARIES" ${ARGN})
    target_link_libraries(${name} PRIVATE nubo_options ${PCH_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${PCH_HEADERS})
endfunction()

nubo_add_precompiled(nubo_core_headers HEADERS ${NUBO_CORE_HEADERS} LIBRARIES Qt6::Core)
nubo_add_precompiled(nubo_widget_headers HEADERS ${NUBO_WIDGET_HEADERS}
                      LIBRARIES Qt6::Widgets)
