// SPDX-License-Identifier: MIT
//
// Another program that holds the shared-memory key given to it, until its standard input ends.
#include <QCoreApplication>
#include <QSharedMemory>

#include <cstdio>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QSharedMemory segment(QCoreApplication::arguments().value(1));
    if (!segment.create(1)) {
        return 1;
    }
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
