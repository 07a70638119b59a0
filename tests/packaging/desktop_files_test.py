"""What a desktop gets to see of the program: menu entries in two languages, actions of file managers, icons.

Arguments: the folder packaging, the folder of the icons that the build has drawn (or - where it draws none)."""
import configparser
import os
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

packaging, icons = "", ""
SIZES = (16, 22, 24, 32, 48, 64, 128, 256)


def entry(name):
    parser = configparser.ConfigParser(interpolation=None, delimiters="=", strict=True)
    parser.optionxform = str
    with open(os.path.join(packaging, name), encoding="utf-8") as file:
        parser.read_file(file)
    return parser


class EntryTest(unittest.TestCase):
    def test_every_name_and_comment_is_there_in_chinese_and_english(self):
        count = 0
        for name in ("corvane.desktop", "corvane-here.desktop", "corvane-servicemenu.desktop"):
            parser = entry(name)
            for section in parser.sections():
                for key in ("Name", "GenericName", "Comment", "Keywords"):
                    if key in parser[section] and parser[section][key] != "Corvane":
                        self.assertTrue(parser[section][key].isascii(), f"{name}: {key}")
                        self.assertFalse(parser[section][key + "[zh_CN]"].isascii(), f"{name}: {key}")
                        count += 1
        self.assertEqual(count, 7)

    def test_keywords_can_be_typed_without_an_input_method(self):
        keywords = entry("corvane.desktop")["Desktop Entry"]["Keywords[zh_CN]"].split(";")
        for word in ("重复文件", "chongfu", "chongfuwenjian", "chachong"):
            self.assertIn(word, keywords)

    def test_folders_are_opened_by_the_entry_that_says_so(self):
        here = entry("corvane-here.desktop")["Desktop Entry"]
        self.assertEqual(here["Name[zh_CN]"], "在此查找重复文件")
        self.assertEqual((here["MimeType"], here["Exec"], here["NoDisplay"]), ("inode/directory;", "corvane %F", "true"))
        menu = entry("corvane-servicemenu.desktop")
        self.assertEqual(menu["Desktop Entry"]["MimeType"], "inode/directory;")
        self.assertEqual(menu["Desktop Action corvane-here"]["Name[zh_CN]"], "在此查找重复文件")
        self.assertEqual(menu["Desktop Action corvane-here"]["Exec"], "corvane %F")

    def test_every_action_is_there(self):
        for name in ("corvane.desktop", "corvane-servicemenu.desktop"):
            parser = entry(name)
            for action in parser["Desktop Entry"]["Actions"].rstrip(";").split(";"):
                self.assertIn(f"Desktop Action {action}", parser)

    def test_the_action_of_the_home_folder_hands_it_over(self):
        line = entry("corvane.desktop")["Desktop Action home"]["Exec"]
        # The quoting of the value, then that of the argument.
        quoted = line.replace("\\\\", "\\")
        self.assertTrue(quoted.startswith('sh -c "') and quoted.endswith('"'))
        script = quoted[len('sh -c "'):-1].replace('\\"', '"').replace("\\$", "$")
        with tempfile.TemporaryDirectory() as root:
            self.assertEqual(run_with_fake(root, ["sh", "-c", script], HOME="/home/a b"), ["/home/a b"])

    def test_the_metainfo_is_well_formed_and_names_the_entry(self):
        root = xml.etree.ElementTree.parse(os.path.join(packaging, "corvane.metainfo.xml.in")).getroot()
        self.assertEqual(root.findtext("launchable"), "corvane.desktop")
        language = "{http://www.w3.org/XML/1998/namespace}lang"
        for tag in ("p", "li", "summary"):
            texts = list(root.iter(tag))
            self.assertEqual(sum(text.get(language) == "zh-CN" for text in texts) * 2, len(texts), tag)


def run_with_fake(root, command, **more):
    """What a corvane in the path is called with."""
    fake = os.path.join(root, "corvane")
    with open(fake, "w") as file:
        file.write('#!/bin/sh\nprintf "%s\\0" "$@"\n')
    os.chmod(fake, 0o755)
    environment = {"PATH": root + ":" + os.environ["PATH"], **more}
    cwd = environment.pop("cwd", root)
    out = subprocess.run(command, env=environment, cwd=cwd, capture_output=True, check=True, timeout=60).stdout
    return [os.fsdecode(part) for part in out.split(b"\0")[:-1]]


class NautilusTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="corvane_nautilus_")
        self.addCleanup(place.cleanup)
        self.root = os.path.realpath(place.name)
        self.script = os.path.join(packaging, "nautilus-script.sh")

    def make(self, *names):
        for name in names:
            os.mkdir(os.path.join(self.root, name))
        return [os.path.join(self.root, name) for name in names]

    def test_selected_folders_are_handed_over_and_files_are_not(self):
        folders = self.make("a b", "*", "$HOME", "照片")
        file = os.path.join(self.root, "file")
        open(file, "w").close()
        lines = "".join(path + "\n" for path in [*folders, file])
        self.assertEqual(run_with_fake(self.root, [self.script], NAUTILUS_SCRIPT_SELECTED_FILE_PATHS=lines),
                         ["--", *folders])

    def test_without_a_selection_it_is_the_folder_that_is_shown(self):
        shown, = self.make("-shown")
        self.assertEqual(run_with_fake(self.root, [self.script], cwd=shown), ["--", shown])


class IconTest(unittest.TestCase):
    def test_every_size_is_drawn_and_is_not_empty(self):
        if icons == "-":
            self.skipTest("no icons in this build")
        for size in SIZES:
            path = os.path.join(icons, "hicolor", f"{size}x{size}", "apps", "corvane.png")
            with open(path, "rb") as file:
                content = file.read()
            self.assertEqual(content[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", content[16:24]), (size, size))
            self.assertGreater(len(content), 200)

    def test_the_symbolic_one_has_one_colour_for_the_desktop_to_replace(self):
        root = xml.etree.ElementTree.parse(os.path.join(packaging, "corvane-symbolic.svg")).getroot()
        self.assertEqual({part.get("fill") for part in root.iter() if part.get("fill")}, {"#2e3436"})
        self.assertEqual((root.get("width"), root.get("height")), ("16", "16"))


if __name__ == "__main__":
    packaging = os.path.abspath(sys.argv[1])
    icons = sys.argv[2]
    unittest.main(argv=sys.argv[:1])
