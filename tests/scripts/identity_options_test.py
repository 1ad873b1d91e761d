# SPDX-License-Identifier: MIT
"""What the options of the camera's USB identity become, and which values are refused."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

CMAKE = sys.argv.pop(1)
WRITE_FILES = pathlib.Path(__file__).with_name("identity_files.cmake")


def write_files(directory, vendor, product="0x0001"):
    return subprocess.run(
        [
            CMAKE,
            f"-DNUBO_USB_VENDOR_ID={vendor}",
            f"-DNUBO_USB_PRODUCT_ID={product}",
            f"-DOUTPUT={directory}",
            "-P",
            WRITE_FILES,
        ],
        capture_output=True,
        text=True,
        timeout=60,
    )


class IdentityOptionsTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)

    def written(self, name):
        return (self.directory / name).read_text(encoding="utf-8")

    def test_udev_compares_four_lower_case_digits_and_the_alias_has_upper_case_ones(self):
        for vendor, product, rule, alias in (
            ("0x1209", "0x0001", ("1209", "0001"), "v1209p0001"),
            ("0xABCD", "0xef01", ("abcd", "ef01"), "vABCDpEF01"),
            ("0x1", "0X2f", ("0001", "002f"), "v0001p002F"),
        ):
            with self.subTest(vendor=vendor, product=product):
                ended = write_files(self.directory, vendor, product)
                self.assertEqual(ended.returncode, 0, ended.stderr)
                self.assertIn(
                    'ATTR{idVendor}=="%s", ATTR{idProduct}=="%s"' % rule,
                    self.written("70-nubo-setting-tool.rules"),
                )
                self.assertIn(
                    f"<modalias>usb:{alias}d*</modalias>",
                    self.written("metainfo.xml"),
                )

    def test_what_is_no_identifier_is_refused_by_its_option_and_value(self):
        for value in ("", "zebra", "1209", "4617", "0x", "0x12345", "0x120g", "0x1209:0x0001", "0x1;0x2"):
            with self.subTest(value=value):
                for option, arguments in (
                    ("NUBO_USB_VENDOR_ID", (value, "0x0001")),
                    ("NUBO_USB_PRODUCT_ID", ("0x1209", value)),
                ):
                    ended = write_files(self.directory, *arguments)
                    self.assertNotEqual(ended.returncode, 0)
                    self.assertIn(f'{option} is "{value}".', " ".join(ended.stderr.split()))
                    self.assertIn("lsusb", ended.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)
