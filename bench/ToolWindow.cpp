// SPDX-License-Identifier: MIT
//
// The tool itself, as its own program starts it; the scenes that are linked with it watch.

#include "app/Startup.h"

int main(int argc, char** argv) {
    return runSettingTool(argc, argv);
}
