"""Two starts of the desktop program on one folder, over a session bus of their own: the first takes over what the second
was called with, and without a bus the second says that the program runs already. Argument: the program."""
import os
import subprocess
import sys
import tempfile
import time
import unittest

program = ""


class HandOverTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="corvane_hand_over_")
        self.addCleanup(place.cleanup)
        self.root = os.path.realpath(place.name)
        self.folder = os.path.join(self.root, "program")
        for name in ("program", "home", "one", "two"):
            os.mkdir(os.path.join(self.root, name))
        # A folder that has been used: a start asks and tells nothing.
        for name in ("不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt"):
            open(os.path.join(self.folder, name), "w").close()
        console = os.path.join(os.path.dirname(program), "corvane-console")
        self.environment = {"PATH": os.environ["PATH"], "HOME": os.path.join(self.root, "home"), "LC_ALL": "C.UTF-8",
                            "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": self.root,
                            "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nonexistent"}
        subprocess.run([console, "--program-dir", self.folder, "--script", "/dev/null"], check=True, timeout=60,
                       env=self.environment, capture_output=True)

    def session(self):
        """A bus, ended with the test."""
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, env=self.environment, text=True)
        self.addCleanup(bus.stdout.close)
        self.addCleanup(bus.wait)
        self.addCleanup(bus.terminate)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def start(self, *directories):
        return subprocess.Popen([program, "--program-dir", self.folder, *directories], env=self.environment,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, cwd=self.root)

    def start_first(self, *directories):
        first = self.start(*directories)
        self.addCleanup(first.wait)
        self.addCleanup(first.kill)
        return first

    def call(self, method, *arguments):
        place = os.stat(self.folder)
        name = f"corvane.Instance.d{place.st_dev}.f{place.st_ino}"
        return subprocess.run(["gdbus", "call", "--session", "--dest", name, "--object-path", "/corvane/Instance",
                               "--method", f"corvane.Instance.{method}", *arguments], env=self.environment,
                              capture_output=True, text=True, timeout=60)

    def wait_until_served(self, first):
        for _ in range(600):
            self.assertIsNone(first.poll(), "the first instance has ended")
            if self.call("Raise").returncode == 0:
                return
            time.sleep(0.05)
        self.fail("the first instance does not answer")

    def test_the_second_start_hands_its_directories_over_and_ends_well(self):
        self.session()
        first = self.start_first("one")
        self.wait_until_served(first)
        self.assertEqual(self.start("two").wait(timeout=30), 0)
        self.assertIsNone(first.poll())
        answer = self.call("Take", f"[b'{self.root}/one', b'/nowhere']", "")
        self.assertEqual(answer.stdout.strip(), "('taken',)", answer.stderr)

    def test_without_a_bus_the_first_is_left_alone(self):
        first = self.start_first("one")
        # The folder is claimed once the first has started: then the second shows its box, which waits for the user.
        claimed = ["flock", "--nonblock", self.folder, "true"]
        for _ in range(600):
            if subprocess.run(claimed).returncode != 0:
                break
            time.sleep(0.05)
        else:
            self.fail("the first instance has not claimed its folder")
        second = self.start("two")
        self.addCleanup(second.wait)
        self.addCleanup(second.kill)
        with self.assertRaises(subprocess.TimeoutExpired):
            second.wait(timeout=1.5)
        self.assertIsNone(first.poll())


if __name__ == "__main__":
    program = os.path.abspath(sys.argv[1])
    unittest.main(argv=sys.argv[:1])
