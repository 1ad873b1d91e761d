# SPDX-License-Identifier: MIT
import unittest

from shortening import shortened


class ShorteningTest(unittest.TestCase):
    def test_only_the_steps_that_matter_stay(self):
        matter = {3, 17, 18}
        steps = shortened(list(range(40)), lambda rest: matter <= set(rest))
        self.assertEqual(steps, [3, 17, 18])

    def test_their_order_stays(self):
        def fails(rest):
            return "".join(rest).find("plug") < "".join(rest).find("fault")

        self.assertEqual(shortened(["mode", "plug", "wait", "fault", "key"], fails), ["fault"])
        self.assertEqual(shortened(list("abcabc"), lambda rest: "cb" in "".join(rest).replace("a", "")), ["c", "b"])

    def test_a_walk_that_always_fails_ends_without_steps(self):
        self.assertEqual(shortened(list("abc"), lambda rest: True), [])

    def test_what_fails_now_and_then_ends(self):
        answers = iter([True, False] * 100)
        self.assertLess(len(shortened(list(range(8)), lambda rest: next(answers))), 8)


if __name__ == "__main__":
    unittest.main()
