// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Accessibility.h"

#include <QApplication>
#include <QTest>

/// A subject of a test program. Each folder of tests is one program; a test file registers its
/// class with it, and `nubo-tests-FOLDER CLASS` runs that class in a process of its own:
///
///     const TestSubject registered = subjectWithWidgets<ClockTest>();
class TestSubject {
public:
    using Run = int (*)(int argc, char** argv);

    /// @param name of the class; a namespace before it does not count.
    TestSubject(const char* name, Run run);
};

/// Runs @p Test under a QApplication.
template <class Test>
[[nodiscard]] TestSubject subjectWithWidgets() {
    return {Test::staticMetaObject.className(), [](int argc, char** argv) {
                const QApplication application(argc, argv);
                installAccessibility();
                QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
                Test test;
                return QTest::qExec(&test, argc, argv);
            }};
}

/// Runs @p Test under a QCoreApplication, for what needs an event loop and no screen.
template <class Test>
[[nodiscard]] TestSubject subjectWithoutScreen() {
    return {Test::staticMetaObject.className(), [](int argc, char** argv) {
                const QCoreApplication application(argc, argv);
                Test test;
                return QTest::qExec(&test, argc, argv);
            }};
}

/// Runs @p Test without an application object.
template <class Test>
[[nodiscard]] TestSubject subjectWithoutApplication() {
    return {Test::staticMetaObject.className(), [](int argc, char** argv) {
                Test test;
                return QTest::qExec(&test, argc, argv);
            }};
}
