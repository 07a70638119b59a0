#!/usr/bin/env python3
"""Compares the answers that make_sets writes with what sha256sum says about the files.

    python3 tests/bench/make_sets_test.py PATH_TO_MAKE_SETS
"""
import collections
import os
import subprocess
import sys
import tempfile
import unittest

SCALES = {"W1": "0.02", "W2": "0.01", "W3": "0.01", "W4": "0.005", "W5": "0.02"}
COUNTS = {"W1": 4000, "W2": 40, "W3": 12, "W4": 5000, "W5": 2000}
make_sets = ""


def file_paths(directory):
    return [os.path.join(folder, name) for folder, _, names in os.walk(directory) for name in names]


def groups_by_digest(directory):
    listing = subprocess.run(
        ["find", ".", "-type", "f", "-exec", "sha256sum", "{}", "+"],
        cwd=directory, check=True, capture_output=True, text=True).stdout
    groups = collections.defaultdict(set)
    for line in listing.splitlines():
        digest, path = line.split("  ", 1)
        groups[digest].add(os.path.normpath(path))
    return {frozenset(group) for group in groups.values() if len(group) > 1}


def groups_of_answer(directory):
    groups = collections.defaultdict(set)
    with open(directory + ".answer", encoding="ascii") as answer:
        for line in answer:
            content_id, path = line.rstrip("\n").split("\t")
            groups[content_id].add(path)
    return {frozenset(group) for group in groups.values()}


class MakeSetsTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.place = place.name

    def make(self, name, set_name, *more):
        directory = os.path.join(self.place, name)
        subprocess.run([make_sets, directory, set_name, SCALES[set_name], *more], check=True)
        return directory

    def test_the_answer_is_that_of_sha256sum(self):
        for set_name, count in COUNTS.items():
            with self.subTest(set_name):
                directory = self.make(set_name, set_name)
                self.assertEqual(len(file_paths(directory)), count)
                answer = groups_of_answer(directory)
                self.assertTrue(all(len(group) > 1 for group in answer))
                self.assertEqual(answer, groups_by_digest(directory))

    def test_a_seed_makes_the_same_set_again_and_another_seed_another(self):
        for set_name in ("W1", "W4"):
            with self.subTest(set_name):
                first = self.make(set_name + "a", set_name, "--seed", "7")
                again = self.make(set_name + "b", set_name, "--seed", "7")
                other = self.make(set_name + "c", set_name, "--seed", "8")
                self.assertEqual(subprocess.run(["diff", "-rq", first, again]).returncode, 0)
                self.assertEqual(groups_of_answer(first), groups_of_answer(again))
                self.assertNotEqual(groups_of_answer(first), groups_of_answer(other))

    def test_the_share_of_equal_files_is_as_wanted(self):
        for set_name, share in (("W1", 0.3), ("W2", 0.4), ("W5", 0.0)):
            with self.subTest(set_name):
                directory = self.make(set_name, set_name)
                equal_files = sum(len(group) for group in groups_of_answer(directory))
                self.assertAlmostEqual(equal_files / COUNTS[set_name], share, delta=0.03)

    def test_photographs_have_two_megabytes_each_and_look_alikes(self):
        directory = self.make("W2", "W2")
        paths = file_paths(directory)
        total = sum(os.path.getsize(path) for path in paths)
        self.assertAlmostEqual(total / len(paths), 2_000_000, delta=100_000)
        heads = collections.defaultdict(set)
        for path in paths:
            with open(path, "rb") as file:
                content = file.read()
            heads[(len(content), content[:65536])].add(content)
        self.assertTrue(any(len(contents) > 1 for contents in heads.values()))

    def test_a_directory_that_is_not_empty_is_refused(self):
        with open(os.path.join(self.place, "there"), "w", encoding="ascii"):
            pass
        result = subprocess.run([make_sets, self.place, "W3", "0.001"], capture_output=True)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(os.listdir(self.place), ["there"])

    def test_wrong_arguments_are_refused(self):
        for arguments in ([], ["x"], ["x", "W6"], ["x", "W1", "0"], ["x", "W1", "2"], ["x", "W1", "--seed"]):
            result = subprocess.run([make_sets, *arguments], cwd=self.place, capture_output=True)
            self.assertEqual(result.returncode, 2)
        self.assertEqual(os.listdir(self.place), [])


if __name__ == "__main__":
    make_sets = os.path.abspath(sys.argv.pop(1))
    unittest.main()
