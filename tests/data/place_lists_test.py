"""The lists go beside the program on build and installation, and only where none stands.

Arguments: cmake, its generator, the source folder, the build folder, the folder of the built programs, their names
(an empty one is skipped)."""
import json
import os
import subprocess
import sys
import tempfile
import unittest

NAMES = ["不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt", "常用文件扩展名.txt",
         "文件扩展名列表.txt", "文件类型归类.txt"]
HELP = ["help", "帮助"]
ACTIONS = ["nautilus-scripts"]
cmake, generator, source, build, built_programs = "", "", "", "", ""
programs = []


def run(*command, **more):
    return subprocess.run(command, check=True, capture_output=True, timeout=300, **more)


def content_of(*place):
    with open(os.path.join(*place), "rb") as file:
        return file.read()


def write(content, *place):
    with open(os.path.join(*place), "wb") as file:
        file.write(content)


def shipped(name):
    return content_of(source, "data", name)


class PlaceListsTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="corvane_lists_")
        self.addCleanup(place.cleanup)
        self.root = place.name

    def expect_lists(self, folder, edited=()):
        found = {name: content_of(folder, name) for name in os.listdir(folder) if name.endswith(".txt")}
        self.assertEqual(found, {**{name: shipped(name) for name in NAMES}, **dict(edited)})


class ScriptTest(PlaceListsTest):
    def place(self, folder):
        files = ";".join(os.path.join(source, "data", name) for name in NAMES)
        run(cmake, f"-DFOLDER={folder}", f"-DFILES={files}", "-P", os.path.join(source, "cmake/PlaceLists.cmake"))

    def test_missing_lists_appear_in_a_folder_that_is_made(self):
        folder = os.path.join(self.root, "some where", "程序")
        self.place(folder)
        self.expect_lists(folder)
        self.assertEqual(sorted(os.listdir(folder)), sorted(NAMES))

    def test_lists_that_stand_stay_as_they_are(self):
        edited = {NAMES[0]: b"1/home/\r\n", NAMES[3]: b""}
        for name, content in edited.items():
            write(content, self.root, name)
            os.utime(os.path.join(self.root, name), (1, 1))
        for _ in range(2):
            self.place(self.root)
            self.expect_lists(self.root, edited)
            for name in edited:
                self.assertEqual(os.stat(os.path.join(self.root, name)).st_mtime, 1)

    def test_a_link_that_leads_nowhere_is_kept(self):
        goal = os.path.join(self.root, "goal")
        folder = os.path.join(self.root, "program")
        os.mkdir(folder)
        os.symlink(goal, os.path.join(folder, NAMES[1]))
        self.place(folder)
        self.assertTrue(os.path.islink(os.path.join(folder, NAMES[1])))
        self.assertFalse(os.path.exists(goal))
        self.assertEqual(sorted(os.listdir(folder)), sorted(NAMES))

    def test_a_deleted_list_comes_back(self):
        self.place(self.root)
        os.remove(os.path.join(self.root, NAMES[2]))
        self.place(self.root)
        self.expect_lists(self.root)

    def test_a_call_without_files_fails(self):
        script = os.path.join(source, "cmake/PlaceLists.cmake")
        self.assertNotEqual(subprocess.run([cmake, f"-DFOLDER={self.root}", "-P", script],
                                           capture_output=True).returncode, 0)


class BuildTest(PlaceListsTest):
    def test_the_build_places_the_lists(self):
        tree, folder = os.path.join(self.root, "build"), os.path.join(self.root, "build", "bin")
        query, reply = (os.path.join(tree, ".cmake", "api", "v1", name) for name in ("query", "reply"))
        os.makedirs(query)
        write(b"", query, "codemodel-v2")
        run(cmake, "-S", source, "-B", tree, "-G", generator, "-DCORVANE_FORMS=OFF", "-DCORVANE_TESTS=OFF")
        # Building the program includes the step; here the step is run alone.
        replies = [json.loads(content_of(reply, name)) for name in os.listdir(reply)
                   if name.startswith("target-corvane-console-")]
        self.assertTrue(replies)
        for program in replies:
            self.assertIn("corvane_lists", {other["id"].split("::")[0] for other in program["dependencies"]})
        run(cmake, "--build", tree, "--target", "corvane_lists")
        self.expect_lists(folder)
        # A list newer in the source than the user's: the user's stays.
        write(b"1.XYZ\r\n", folder, NAMES[2])
        os.utime(os.path.join(folder, NAMES[2]), (1, 1))
        os.remove(os.path.join(folder, NAMES[4]))
        run(cmake, "--build", tree, "--target", "corvane_lists")
        self.expect_lists(folder, {NAMES[2]: b"1.XYZ\r\n"})


class InstallTest(PlaceListsTest):
    def setUp(self):
        super().setUp()
        # An installation writes its manifest into the build folder; that of the user is kept.
        manifest = os.path.join(build, "install_manifest.txt")
        if os.path.exists(manifest):
            self.addCleanup(write, content_of(manifest), manifest)
        else:
            self.addCleanup(lambda: os.path.exists(manifest) and os.remove(manifest))

    def install(self, prefix, **more):
        run(cmake, "--install", build, "--prefix", prefix, **more)

    def expect_programs(self, top):
        folder = os.path.join(top, "lib", "corvane")
        built = [name for name in programs if os.path.exists(os.path.join(built_programs, name))]
        self.assertIn("corvane-console", built)
        self.assertEqual(sorted(os.listdir(folder)), sorted(NAMES + HELP + built + ACTIONS * ("corvane" in programs)))
        self.assertEqual(sorted(os.listdir(os.path.join(top, "bin"))), sorted(built))
        for name in built:
            self.assertEqual(os.readlink(os.path.join(top, "bin", name)), f"../lib/corvane/{name}")
            self.assertTrue(os.access(os.path.join(top, "bin", name), os.X_OK))
        for made in ("man/man1/corvane-console.1", "bash-completion/completions/corvane-console",
                     "zsh/site-functions/_corvane-console"):
            self.assertGreater(os.path.getsize(os.path.join(top, "share", made)), 0)
        return folder

    def test_links_start_programs_that_stand_beside_their_lists(self):
        self.install(self.root)
        folder = self.expect_programs(self.root)
        self.expect_lists(folder)
        link = os.path.join(self.root, "bin", "corvane-console")
        links = sorted(os.listdir(os.path.dirname(link)))
        usage = subprocess.run([link], capture_output=True, timeout=60)
        self.assertEqual(usage.returncode, 2)
        self.assertTrue(usage.stderr.startswith(b"corvane-console: no directory to search"))
        # The program takes the folder behind the link for its own.
        os.mkdir(os.path.join(self.root, "data"))
        for name in ("a", "b"):
            write(b"equal", self.root, "data", name)
        pairs = run(link, os.path.join(self.root, "data")).stdout
        self.assertEqual(pairs.count(b"\n"), 1)
        self.assertTrue(os.path.exists(os.path.join(folder, "文件清单.txt")))
        self.assertEqual(sorted(os.listdir(os.path.dirname(link))), links)

    def test_a_second_installation_keeps_an_edited_list(self):
        self.install(self.root)
        folder = os.path.join(self.root, "lib", "corvane")
        write(b"1/home/\r\n", folder, NAMES[0])
        write(b"", folder, NAMES[5])
        os.remove(os.path.join(folder, NAMES[1]))
        self.install(self.root)
        self.expect_programs(self.root)
        self.expect_lists(folder, {NAMES[0]: b"1/home/\r\n", NAMES[5]: b""})

    def test_a_staged_installation_stays_in_its_folder(self):
        self.install("/opt/corvane_lists_test", env=dict(os.environ, DESTDIR=self.root))
        self.expect_lists(self.expect_programs(os.path.join(self.root, "opt", "corvane_lists_test")))
        self.assertFalse(os.path.exists("/opt/corvane_lists_test"))


if __name__ == "__main__":
    cmake, generator, source, build, built_programs, *names = sys.argv[1:]
    programs = [name for name in names if name]
    unittest.main(argv=sys.argv[:1])
