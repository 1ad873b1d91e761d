# SPDX-License-Identifier: MIT
"""Another program: claims the interface of the device node that it is given, until it is ended."""

import fcntl
import os
import signal
import struct
import sys

CLAIM_INTERFACE = 0x8004550F  # USBDEVFS_CLAIMINTERFACE of the kernel

node = os.open(sys.argv[1], os.O_RDWR)
fcntl.ioctl(node, CLAIM_INTERFACE, struct.pack("I", 0))
print("claimed", flush=True)
signal.pause()
