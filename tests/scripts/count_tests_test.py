#!/usr/bin/env python3
"""What ./test counts as passed and failed."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[1] / "support" / "count_tests.py"
PASSED = '<testcase name="%s" time="%s"/>'
FAILED = '<testcase name="%s" time="%s"><failure message=""/></testcase>'
SKIPPED = '<testcase name="%s" time="%s"><skipped message=""/></testcase>'
# Of a program whose tests ran together: two passed, one failed, one skipped.
TOGETHER = ('<testsuites><testsuite>'
            '<testcase name="A"/><testcase name="B" result="completed"/>'
            '<testcase name="C"><failure message="1"/><failure message="2"/></testcase>'
            '<testcase name="D" result="skipped"><skipped message=""/></testcase>'
            '</testsuite></testsuites>')


class CountTests(unittest.TestCase):
    def count(self, *cases, together=None):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "report.xml").write_text(f"<testsuite>{''.join(cases)}</testsuite>")
            for program, text in (together or {}).items():
                (folder / f"{program}.xml").write_text(text)
            done = subprocess.run([sys.executable, "-B", SCRIPT, folder / "report.xml", folder],
                                  check=True, capture_output=True, text=True)
        passed, failed, longest = done.stdout.rstrip("\n").split(" ", 2)
        return int(passed), int(failed), longest

    def test_takes_a_skipped_test_for_neither(self):
        cases = [PASSED % ("a", 1), PASSED % ("b", 1), FAILED % ("c", 1), SKIPPED % ("d", 1)]
        self.assertEqual((2, 1), self.count(*cases)[:2])

    def test_counts_each_test_of_a_program_that_ran_them_together(self):
        self.assertEqual((3, 1), self.count(FAILED % ("Together.x", 1), PASSED % ("a", 1),
                                            together={"x": TOGETHER})[:2])

    def test_takes_a_program_without_its_report_for_a_failed_test(self):
        self.assertEqual((0, 1), self.count(FAILED % ("Together.x", 1))[:2])

    def test_takes_a_program_that_failed_behind_its_last_test_for_a_failed_test(self):
        whole = '<testsuites><testcase name="A"/></testsuites>'
        self.assertEqual((1, 1), self.count(FAILED % ("Together.x", 1), together={"x": whole})[:2])

    def test_names_the_longest_first(self):
        cases = [PASSED % (f"t{i}", i) for i in (3, 9, 1, 7, 5, 2)]
        self.assertEqual("9 s t9, 7 s t7, 5 s t5, 3 s t3, 2 s t2", self.count(*cases)[2])


if __name__ == "__main__":
    unittest.main()
