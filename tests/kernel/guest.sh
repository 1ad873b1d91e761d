#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Inside the virtual machine, on the host's files: starts what a user's computer has running, runs
# one command and switches the machine off. Its exit code is left in /run/output.
export HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin
export LC_ALL=C.UTF-8 TMPDIR=/tmp PYTHONDONTWRITEBYTECODE=1
touch /run/output/up
echo "The machine is up: Linux $(uname -r)"

# What a computer without a USB controller would not have loaded by itself.
modprobe usbcore
/lib/systemd/systemd-udevd --daemon
udevadm trigger
udevadm settle

cd /tmp || exit
"$@"
echo $? >/run/output/exit-code
sync
poweroff -f
