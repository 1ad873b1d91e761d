# SPDX-License-Identifier: MIT
"""Finds the steps of a failing walk that matter."""


def shortened(steps, fails):
    """A part of the steps that still fails, and of which none can be left out.

    Leaves out halves, then quarters and so on, as long as fails(steps) holds without them.
    """
    size = max(1, len(steps) // 2)
    while steps:
        begin = 0
        was_shortened = False
        while begin < len(steps):
            rest = steps[:begin] + steps[begin + size :]
            if fails(rest):
                steps = rest
                was_shortened = True
            else:
                begin += size
        if size == 1 and not was_shortened:
            break
        size = max(1, size // 2)
    return steps
