#!/usr/bin/env python3
"""The second calculation itself, against the whole runs worked out by hand and its odd corners.

    reference_run_test.py
"""

import math
import os
import tempfile
import unittest

import random_building
import reference_run
from reference_run import real_number, whole_number

WHOLE_RUNS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "whole_run")


def contents(path):
    if not os.path.exists(path):
        return None
    with open(path, "rb") as file:
        return file.read()


class WholeRunsByHand(unittest.TestCase):
    def test_the_hand_calculations_are_met(self):
        folders = [f.path for f in os.scandir(WHOLE_RUNS) if f.is_dir()]
        self.assertGreaterEqual(len(folders), 5)
        for folder in sorted(folders):
            with self.subTest(os.path.basename(folder)):
                model = os.path.join(folder, "model.qhm")
                status, log, results = reference_run.compute(
                    model, os.path.join(folder, "input.csv"))
                self.assertEqual("".join(line + "\n" for line in status).encode(),
                                 contents(os.path.join(folder, "expected.status")))
                self.assertEqual(log.replace(os.fsencode(model), b"@MODEL@"),
                                 contents(os.path.join(folder, "expected.log")))
                self.assertEqual(results, contents(os.path.join(folder, "expected.csv")))


class Numbers(unittest.TestCase):
    def test_whole_numbers_stop_at_the_first_other_character(self):
        self.assertEqual([whole_number(t) for t in (b" 12x", b"+3", b"-4.9", b"", b"x1", b"007")],
                         [12, 3, -4, 0, 0, 7])

    def test_whole_numbers_keep_to_32_bits(self):
        self.assertEqual(whole_number(b"99999999999"), 2147483647)
        self.assertEqual(whole_number(b"-99999999999"), -2147483648)

    def test_real_numbers_take_every_form_of_the_c_library(self):
        self.assertEqual([real_number(t) for t in (
            b" 3.5mm", b"1e", b"1e2", b".5", b"5.", b".", b"e5", b"0x1p-8", b"0x", b"-0x.8",
            b"1e999", b"-inf", b"INFINITYx")], [
            3.5, 1.0, 100.0, 0.5, 5.0, 0.0, 0.0, 0.00390625, 0.0, -0.5,
            math.inf, -math.inf, math.inf])
        self.assertTrue(math.isnan(real_number(b"-NaN(7)")))


class InputLines(unittest.TestCase):
    def lines_of(self, text):
        with tempfile.NamedTemporaryFile() as file:
            file.write(text)
            file.flush()
            return list(reference_run.Run("model.qhm", file.name).input_lines())

    def test_a_read_takes_199_characters_line_feed_included(self):
        self.assertEqual(self.lines_of(b"a" * 198 + b"\r\nFIN"), [b"a" * 198])
        self.assertEqual(self.lines_of(b"a" * 199 + b"\nFIN"), [b"a" * 199, b""])
        self.assertEqual(self.lines_of(b"a" * 199 + b"FIN\nb"), [b"a" * 199])

    def test_100001_lines_may_stand_before_fin(self):
        self.assertEqual(len(self.lines_of(b"\n" * 100001 + b"FIN")), 100001)
        with self.assertRaises(reference_run.TooManyLines):
            self.lines_of(b"\n" * 100002 + b"FIN")

    def test_the_end_of_the_file_repeats_the_last_line_until_the_limit(self):
        with self.assertRaises(reference_run.TooManyLines):
            self.lines_of(b"DeadLoadCaseNumber,1,")


class RandomBuildings(unittest.TestCase):
    def test_a_seed_always_gives_the_same_building(self):
        for seed in range(20):
            self.assertEqual(random_building.make_building(seed),
                             random_building.make_building(seed))

    def test_most_runs_complete_and_the_others_end_in_every_way(self):
        endings = set()
        complete = 0
        with tempfile.TemporaryDirectory() as work:
            for seed in range(300):
                folder = os.path.join(work, str(seed))
                os.makedirs(folder)
                model, data = os.path.join(folder, "m.qhm"), os.path.join(folder, "i.csv")
                random_building.write_building(seed, model, data)
                status, _, _ = reference_run.compute(model, data)
                complete += "Calculation Complete" in status
                endings.update(status)
        self.assertGreater(complete, 150)
        self.assertLess(complete, 250)
        self.assertLessEqual({"Input does not exist", "Failed to initialize AijCodeRoute2...",
                              "Please run analysis first.", "Exception was thrown...",
                              "Calculation Complete"}, endings)


if __name__ == "__main__":
    unittest.main()
