# SPDX-License-Identifier: MIT
# Sourced by what needs a Linux with USB: a virtual machine of Debian's kernel on this computer's
# files, under software emulation.

# shellcheck disable=SC2034 # for the scripts that source this
MACHINE_PACKAGES=(qemu-system-x86 busybox-static cpio kmod udev)

# What is needed before the root is there; all other modules are loaded from it.
ROOT_MODULES=(virtio_pci 9pnet_virtio 9p overlay)

# Inside it is /run/output.
MACHINE_OUTPUT=${MACHINE_OUTPUT:-$PWD/build/kernel/output}

# One processor: where two take turns, as programs that talk to each other, each turn would wait for
# the computer's own scheduler.
MACHINE_PROCESSOR=(-accel tcg -smp 1)

# A loaded computer takes ten times as long as an idle one.
MACHINE_START_LIMIT_S=${MACHINE_START_LIMIT_S:-400}
MACHINE_LIMIT_S=${MACHINE_LIMIT_S:-2400}

kernel_folder() {
    echo "$PWD/build/kernel/$1"
}

# fetch_kernel SUITE: unpacks Debian's kernel of that suite into its folder, unless it is there.
# Nothing is installed, and apt's own lists stay as they are.
fetch_kernel() {
    local suite=$1 folder
    folder=$(kernel_folder "$suite")
    [ ! -e "$folder/complete" ] || return 0
    echo "Fetching the kernel of $suite"
    rm -rf "$folder"
    mkdir -p "$folder/lists/partial"
    # The archive that this computer uses has the other suites of Debian, too.
    local archive keys=/usr/share/keyrings/debian-archive-keyring.gpg
    archive=$(apt-get indextargets --format '$(REPO_URI)' 'Label: Debian' | head -n 1)
    local apt=(-qq -o "Dir::Etc::sourcelist=$folder/sources.list" -o Dir::Etc::sourceparts=-
        -o "Dir::State::lists=$folder/lists" -o APT::Sandbox::User=root)
    echo "deb [signed-by=$keys] ${archive:-http://deb.debian.org/debian} $suite main" \
        >"$folder/sources.list"
    apt-get "${apt[@]}" update
    # The package without a version in its name depends on the newest one.
    local package
    package=$(apt-cache "${apt[@]}" depends linux-image-amd64 |
        sed -n 's/^ *Depends: \(linux-image-.*\)/\1/p' | head -n 1)
    [ -n "$package" ] || {
        echo "$suite has no linux-image-amd64" >&2
        return 1
    }
    (cd "$folder" && apt-get "${apt[@]}" download "$package")
    dpkg-deb --extract "$folder"/linux-image-*.deb "$folder/root"
    rm -r "$folder"/linux-image-*.deb "$folder/lists"
    depmod -b "$folder/root" "$(ls "$folder/root/lib/modules")"
    touch "$folder/complete"
}

# make_ramdisk KERNEL_FOLDER FILE JOB...: what the kernel starts with.
make_ramdisk() {
    local kernel=$1 file=$2 content release module
    shift 2
    content=$(mktemp --directory)
    release=$(ls "$kernel/root/lib/modules")
    mkdir "$content"/{bin,dev,host,layer,modules,proc,root,sys}
    cp "$(command -v busybox)" "$content/bin/busybox"
    cp tests/kernel/init "$content/init"
    modprobe -d "$kernel/root" -S "$release" --show-depends --all "${ROOT_MODULES[@]}" |
        awk '$1 == "insmod" && !seen[$2]++ { print $2 }' |
        while read -r module; do
            cp "$module" "$content/modules/"
            basename "$module" >>"$content/modules/order"
        done
    {
        printf 'PROJECT=%q\n' "$PWD"
        printf 'MODULES=%q\n' "$kernel/root/lib/modules"
        printf 'set --'
        printf ' %q' "$@"
        printf '\n'
    } >"$content/machine.conf"
    (cd "$content" && find . | cpio --quiet --create --format=newc) >"$file"
    rm -r "$content"
}

# run_in_machine SUITE COMMAND...: on that suite's kernel, which has been fetched. Its exit code; 1 when the machine has not come up, or has not
# ended, within its limit. What the command leaves in /run/output is in MACHINE_OUTPUT then.
run_in_machine() {
    local kernel output=$MACHINE_OUTPUT
    kernel=$(kernel_folder "$1")
    shift
    rm -rf "$output"
    mkdir -p "$output"
    make_ramdisk "$kernel" "$output/ramdisk" "$@"
    : >"$output/console"  # for its reader, who may be there first

    local machine=(
        qemu-system-x86_64 "${MACHINE_PROCESSOR[@]}" -cpu max -m 2048 -nic none
        -display none -serial stdio -monitor none -no-reboot -device virtio-rng-pci
        -kernel "$(ls "$kernel"/root/boot/vmlinuz-*)" -initrd "$output/ramdisk"
        -append "console=ttyS0 quiet panic=-1 mitigations=off"
        -virtfs "local,path=/,mount_tag=host,security_model=none,readonly=on,multidevs=remap"
        -virtfs "local,path=$output,mount_tag=output,security_model=none"
    )
    timeout --signal=KILL "$MACHINE_LIMIT_S" "${machine[@]}" </dev/null >"$output/console" 2>&1 &
    local process=$! start=$SECONDS reader
    tail --lines=+1 --follow --pid=$process "$output/console" &
    reader=$!
    while kill -0 $process 2>/dev/null && ! [ -e "$output/up" ]; do
        if ((SECONDS - start > MACHINE_START_LIMIT_S)); then
            kill $process
            break
        fi
        sleep 1
    done
    wait $process || true
    wait $reader || true
    if ! [ -e "$output/up" ]; then
        echo "The machine has not come up within ${MACHINE_START_LIMIT_S} s" >&2
        return 1
    elif ! [ -e "$output/exit-code" ]; then
        echo "The machine has not come to an end within ${MACHINE_LIMIT_S} s, or was ended" >&2
        return 1
    fi
    return "$(<"$output/exit-code")"
}
