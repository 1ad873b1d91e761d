// SPDX-License-Identifier: MIT
#include "app/Startup.h"

int main(int argc, char** argv) {
    return runSettingTool(argc, argv);
}
