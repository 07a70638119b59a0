"""Where an installed program keeps its files: the user's data folder, each user's own, and nothing of root in a user's.

Arguments: the console, the folder of the lists that ship. Runs a copy of the console as it
stands after an installation. What takes two users runs only as root."""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

console, lists = "", ""
USERS = (23451, 23452)


def files_below(folder):
    return [os.path.join(place, name) for place, folders, files in os.walk(folder) for name in folders + files]


class PlacesTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="corvane_places_")
        self.addCleanup(place.cleanup)
        self.root = place.name
        os.chmod(self.root, 0o755)
        self.program = os.path.join(self.root, "prefix", "bin", "corvane-console")
        self.shared = os.path.join(self.root, "prefix", "share", "corvane")
        os.makedirs(os.path.dirname(self.program))
        os.makedirs(self.shared)
        shutil.copy(console, self.program)
        for name in os.listdir(lists):
            if name.endswith(".txt") and name != "CMakeLists.txt":
                shutil.copy(os.path.join(lists, name), self.shared)
        self.data = os.path.join(self.root, "data")
        os.mkdir(self.data)
        for name in ("a", "b"):
            with open(os.path.join(self.data, name), "w") as file:
                file.write("equal")
        self.home = self.make_home("home")

    def make_home(self, name, user=None):
        home = os.path.join(self.root, name)
        os.mkdir(home)
        if user is not None:
            os.chown(home, user, user)
        return home

    def run_console(self, *arguments, home=None, user=None, **variables):
        environment = {"PATH": os.environ["PATH"], "HOME": home or self.home, "LC_ALL": "C.UTF-8", **variables}
        return subprocess.run([self.program, *(arguments or [self.data])], env=environment, capture_output=True, text=True,
                              timeout=60, **({"user": user, "group": user, "extra_groups": []} if user else {}))

    def test_the_first_start_makes_the_folder_with_the_lists(self):
        done = self.run_console()
        self.assertEqual((done.returncode, done.stdout.count("\n")), (0, 1), done.stderr)
        folder = os.path.join(self.home, ".local", "share", "corvane")
        made = os.listdir(folder)
        for name in os.listdir(self.shared):
            self.assertIn(name, made)
        self.assertIn("Tavrel环境.txt", made)
        self.assertNotIn("不存在", done.stderr)
        self.assertEqual(sorted(os.listdir(os.path.dirname(self.program))), ["corvane-console"])

    def test_the_data_home_says_where(self):
        there = os.path.join(self.root, "elsewhere", "deep")
        self.assertEqual(self.run_console(XDG_DATA_HOME=there).returncode, 0)
        self.assertTrue(os.path.exists(os.path.join(there, "corvane", "Tavrel环境.txt")))
        self.assertEqual(os.listdir(self.home), [])
        # A relative one counts as none.
        self.assertEqual(self.run_console(XDG_DATA_HOME="relative").returncode, 0)
        self.assertTrue(os.path.exists(os.path.join(self.home, ".local", "share", "corvane", "Tavrel环境.txt")))

    def test_beside_its_lists_it_is_portable(self):
        folder = os.path.join(self.root, "portable")
        shutil.copytree(self.shared, folder)
        self.program = shutil.copy(self.program, folder)
        self.assertEqual(self.run_console().returncode, 0)
        self.assertTrue(os.path.exists(os.path.join(folder, "Tavrel环境.txt")))
        self.assertEqual(os.listdir(self.home), [])

    def test_files_of_an_earlier_place_are_told_of(self):
        earlier = os.path.join(self.root, "prefix", "lib", "corvane")
        os.makedirs(earlier)
        self.assertEqual(self.run_console("--program-dir", earlier, self.data).returncode, 0)
        first, second = self.run_console(), self.run_console()
        self.assertEqual((first.returncode, second.returncode), (0, 0))
        self.assertIn(earlier, first.stderr)
        self.assertNotIn(earlier, second.stderr)

    @unittest.skipIf(os.geteuid() != 0, "takes two users")
    def test_two_users_do_not_meet(self):
        homes = [self.make_home(f"home{user}", user) for user in USERS]
        for home, user in zip(homes, USERS):
            self.assertEqual(self.run_console(home=home, user=user).returncode, 0)
        for home, user in zip(homes, USERS):
            made = files_below(home)
            self.assertTrue(any(path.endswith("Tavrel环境.txt") for path in made))
            self.assertEqual({os.lstat(path).st_uid for path in made}, {user})
        # A home that both share: each has a folder of their own in it.
        shared = self.make_home("shared")
        os.chmod(shared, 0o777)
        for user in USERS:
            self.assertEqual(self.run_console(home=shared, user=user, XDG_DATA_HOME=shared).returncode, 0)
        self.assertEqual(sorted(os.listdir(shared)), ["corvane", f"corvane-{USERS[1]}"])

    @unittest.skipIf(os.geteuid() != 0, "takes root")
    def test_root_leaves_nothing_in_the_home_of_a_user(self):
        home = self.make_home("sudo", USERS[0])
        own_home = self.make_home("root_home")
        environment = {"HOME": home, "XDG_DATA_HOME": os.path.join(home, "data")}
        # Root's own home is not for tests: a namespace has another one in its place.
        done = subprocess.run(["unshare", "-m", "sh", "-c", f'mount --bind "{own_home}" /root && exec "$@"', "sh",
                               self.program, self.data], env={"PATH": os.environ["PATH"], **environment},
                              capture_output=True, text=True, timeout=60)
        if "unshare" in done.stderr or "mount:" in done.stderr:
            self.skipTest("no namespaces here: " + done.stderr)
        self.assertEqual((done.returncode, done.stdout.count("\n")), (0, 1), done.stderr)
        self.assertEqual(os.listdir(home), [])
        self.assertTrue(os.path.exists(os.path.join(own_home, ".local", "share", "corvane", "Tavrel环境.txt")))

    @unittest.skipIf(os.geteuid() != 0, "takes root")
    def test_what_root_writes_into_a_folder_of_a_user_is_theirs(self):
        folder = self.make_home("asked", USERS[0])
        for _ in range(2):
            self.assertEqual(self.run_console("--program-dir", folder, self.data).returncode, 0)
            made = files_below(folder)
            self.assertTrue(any(path.endswith("Tavrel环境.txt") for path in made))
            self.assertEqual({os.lstat(path).st_uid for path in made}, {USERS[0]})
        # The user goes on with them.
        self.assertEqual(self.run_console("--program-dir", folder, self.data, user=USERS[0]).returncode, 0)

    @unittest.skipIf(os.geteuid() != 0, "as root a folder can always be written")
    def test_a_home_that_cannot_be_written_is_told_once(self):
        home = self.make_home("locked")
        done = self.run_console(home=home, user=USERS[0])
        self.assertEqual((done.returncode, done.stdout.count("\n")), (0, 1), done.stderr)
        self.assertEqual(done.stderr.count("程序目录不能写入"), 1)
        self.assertNotIn("不存在", done.stderr, "the lists that ship are in force")
        self.assertEqual(os.listdir(home), [])


if __name__ == "__main__":
    console, lists = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1])
