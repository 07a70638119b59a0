"""The nightly command: steps that fail, hang or print markup, and the page of their figures. Argument: its path."""
import importlib.machinery
import importlib.util
import os
import sys
import tempfile
import unittest

nightly = None


def load(path):
    loader = importlib.machinery.SourceFileLoader("nightly", path)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("nightly", loader))
    sys.dont_write_bytecode = True
    sys.modules["nightly"] = module
    loader.exec_module(module)
    return module


class NightlyTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="corvane_nightly_")
        self.addCleanup(place.cleanup)
        self.folder = place.name

    def run_step(self, script, **more):
        more.setdefault("figures", [])
        return nightly.run(nightly.Step("part", "a step", ["sh", "-c", script], **more), self.folder)

    def test_a_figure_is_the_last_that_was_told(self):
        done = self.run_step("echo cov: 5; echo cov: 17; echo Done 300 runs >&2",
                             figures=[("edges", r"cov: (\d+)"), ("inputs", r"Done (\d+)"), ("none", r"x(\d)")])
        self.assertEqual((done.status, done.figures), ("good", [("edges", "17"), ("inputs", "300"), ("none", "?")]))

    def test_what_fails_hangs_or_is_not_there_is_told_and_ends_nothing(self):
        self.assertEqual(self.run_step("exit 3").status, "failed (3)")
        self.assertEqual(self.run_step("exec sleep 60", limit=1).status, "took too long")
        gone = nightly.run(nightly.Step("part", "gone", [os.path.join(self.folder, "none")]), self.folder)
        self.assertTrue(gone.status.startswith("failed ("), gone.status)

    def test_a_step_gets_its_measure_and_leaves_its_output(self):
        done = self.run_step('echo "seeds $CORVANE_SEEDS"', environment={"CORVANE_SEEDS": "12"})
        self.assertEqual(done.output, "seeds 12\n")
        with open(os.path.join(self.folder, "part_a_step.log")) as file:
            self.assertEqual(file.read(), done.output)

    def test_the_page_tells_each_step_and_breaks_on_no_markup(self):
        outcomes = [self.run_step("echo 1234567", figures=[("inputs", r"(\d+)")]),
                    self.run_step("echo '<b>&'; exit 1"), self.run_step("echo a table", shows_output=True)]
        text = nightly.page(outcomes, "abc-<dirty>", "now", 1, "here")
        self.assertIn("2 of 3 steps are good.", text)
        self.assertIn("inputs 1,234,567", text)
        self.assertIn("&lt;b&gt;&amp;", text, "what failed shows what it said")
        self.assertNotIn("<b>", text)
        self.assertIn("abc-&lt;dirty&gt;", text)
        self.assertIn("<pre>a table</pre>", text)
        self.assertEqual(text.count('class="bad"'), 1)
        self.assertIn("Full measures.", text)
        self.assertIn("no figures to compare", nightly.page(outcomes, "a", "now", 0.01, "here"))

    def test_full_measures_are_those_of_the_readmes(self):
        commands = {step.name: step for step in nightly.steps(1, self.folder)}
        self.assertEqual(commands["random acts, 10000 seeds"].environment, {"CORVANE_SEEDS": "10000"})
        self.assertIn("-runs=10000000", commands["the reader of ZIP, 10000000 inputs"].command)
        self.assertIn("-runs=10000000", commands["the reader of RAR, 10000000 inputs"].command)
        self.assertIn("200 kills", commands)
        self.assertEqual({step.part for step in commands.values()}, {"campaign", "fuzzing", "benchmarks"})
        top = os.path.dirname(os.path.abspath(nightly.__file__))
        for step in commands.values():
            for word in step.command:
                if word.endswith(".py"):
                    self.assertTrue(os.path.isfile(word), word)
            # Steps run in a folder of their own.
            for word in step.command[:2] if step.command[0] == sys.executable else step.command[:1]:
                self.assertTrue(os.path.isabs(word), word)
            if step.part == "benchmarks" and len(step.command) > 1:
                programs = {os.path.join(top, "build", "bin", name) for name in ("corvane", "corvane-console")}
                self.assertTrue(programs & set(step.command), step.name)
        # Every benchmark of the folder is among them.
        scripts = {os.path.basename(word) for step in commands.values() for word in step.command if word.endswith(".py")}
        benches = {name for name in os.listdir(os.path.join(top, "bench")) if name.endswith(".py")}
        self.assertLessEqual(benches - {"x11_probe.py"}, scripts)

    def test_a_share_is_never_nothing(self):
        names = [step.name for step in nightly.steps(0.0001, self.folder)]
        self.assertIn("4 kills", names)
        self.assertIn("random acts, 1 seeds", names)


if __name__ == "__main__":
    nightly = load(os.path.abspath(sys.argv[1]))
    unittest.main(argv=sys.argv[:1])
