# SPDX-License-Identifier: MIT
"""Which tests cover which files."""

import re
from dataclasses import dataclass

# Where a control stands is for the layout tests and pictures, not for the write paths.
LAYOUT = re.compile(
    r"->move\(|moveEndTo\(|setContentsMargins|Spacing\(|setFixed|setMinimum|setMaximum|resize\(|addWidget\("
    r"|addLayout\(|setAlignment|QPoint\b|QSize [A-Z]|QRect|constexpr int \w+(?:_[XY]|_TO_\w+|WIDTH|HEIGHT|RIGHT|GAP|INDENT)\b"
    r"|addAddressRow\(|addLabel\(|addButton\(|setGeometry|setFrame|QColor"
)
DIAGNOSTICS = re.compile(r"\bqC\w+\(")


@dataclass(frozen=True)
class Part:
    """Files that the same tests cover."""

    name: str
    files: tuple  # patterns
    stages: tuple  # patterns of subjects; the next ones run where those before have all passed
    skipped_lines: re.Pattern
    share: int  # of the sample


PARTS = [
    Part(
        "protocol",
        ("protocol/*.cpp",),
        (
            ("tests/protocol",),
            ("tests/catalogue",),
            ("tests/properties",),
            ("AllCommandsOnBusTest", "TransactionsOnBusTest", "TransactionFaultsTest", "SettingTableTest"),
        ),
        DIAGNOSTICS,
        90,
    ),
    Part(
        "usb",
        ("usb/*.cpp",),
        (("tests/usb",), ("CameraAtStartTest", "WithoutUsbTest", "MonitorTest")),
        DIAGNOSTICS,
        80,
    ),
    Part("settings", ("settings/*.cpp", "settings/SettingTable.h"), (("tests/settings",), ("tests/cli",)), DIAGNOSTICS, 70),
    Part(
        "basic",
        ("pages/basic/*.cpp", "pages/common/*.cpp"),
        (("tests/pages/basic", "tests/pages/common"), ("BasicSettingOnBusTest", "BasicSettingLeavingTest")),
        LAYOUT,
        35,
    ),
    Part(
        "network",
        ("pages/network/*.cpp",),
        (
            ("tests/pages/network",),
            ("NetworkOnBusTest", "NetworkRefusalsOnBusTest", "NetworkScanOnBusTest", "NetworkUntouchedOnBusTest"),
        ),
        LAYOUT,
        35,
    ),
    Part(
        "stream",
        ("pages/stream/*.cpp",),
        (("tests/pages/stream",), ("StreamSettingOnBusTest", "StreamFailuresOnBusTest")),
        LAYOUT,
        15,
    ),
    Part(
        "state",
        ("pages/state/ClWidgetCameraState.cpp",),
        (("tests/pages/state",), ("CameraStateOnBusTest", "CameraFailuresOnBusTest")),
        LAYOUT,
        15,
    ),
]
