# SPDX-License-Identifier: MIT
"""The tests named, in the virtual machine; how many passed and failed is left in /run/output/counts."""

import os
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))


class TimedResult(unittest.TextTestResult):
    """Tells how long each test took, and at once why it failed."""

    def startTest(self, test):
        self._start = time.monotonic()
        super().startTest(test)

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self.stream.writeln(self.failures[-1][1])

    def addError(self, test, err):
        super().addError(test, err)
        self.stream.writeln(self.errors[-1][1])

    def printErrors(self):
        """They have been told."""

    def stopTest(self, test):
        super().stopTest(test)
        self.stream.writeln(f"    {time.monotonic() - self._start:.1f} s")


def main():
    suite = unittest.defaultTestLoader.loadTestsFromNames(sys.argv[1:])
    runner = unittest.TextTestRunner(sys.stdout, verbosity=2, resultclass=TimedResult)
    result = runner.run(suite)
    failed = len(result.failures) + len(result.errors)
    passed = result.testsRun - failed
    with open("/run/output/counts", "w", encoding="ascii") as counts:
        print(passed, failed, file=counts)
    return 0 if passed > 0 and failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
