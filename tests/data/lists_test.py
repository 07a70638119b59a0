"""The lists that ship with the program, as they stand in data/: bytes, forms, counts, order, and that the three
lists of suffixes agree."""
import os
import re
import sys
import unittest

SUFFIX = r"\.[0-9a-z][0-9a-z_-]*"
# A description is short, holds no blank, and says something in Chinese.
DESCRIPTION = r"(?=\S*[\u4e00-\u9fff])\S{1,16}"
OPTION_LISTS = {
    "不参加搜索的目录.txt": (r"0/(?:[^/\\]+/)+", 100),
    "windows/不参加搜索的目录.txt": (r"0[A-Z]:\\(?:[^/\\]+\\)+", 100),
    "不参加比较的文件类型.txt": (r"0\.[0-9A-Z]+", 200),
    "仅搜索的文件类型.txt": (r"0\.[0-9A-Z]+", 200),
}
COMMON, BY_KIND, LONG = "常用文件扩展名.txt", "文件类型归类.txt", "文件扩展名列表.txt"
folder = ""


def content_of(name):
    with open(os.path.join(folder, name), "rb") as file:
        return file.read()


def lines_of(name):
    return content_of(name).decode("utf-8").split("\r\n")[:-1]


def fields_of(name):
    return [line.split(" ", 1) for line in lines_of(name)]


def doubled(entries):
    return sorted({entry for entry in entries if entries.count(entry) > 1})


class ListsTest(unittest.TestCase):
    def test_the_folder_holds_these_lists_and_no_others(self):
        found = {os.path.relpath(os.path.join(place, name), folder)
                 for place, _, names in os.walk(folder) for name in names if name != "CMakeLists.txt"}
        self.assertEqual(found, {*OPTION_LISTS, COMMON, BY_KIND, LONG})

    def test_every_line_is_utf_8_and_ends_with_cr_lf(self):
        for name in (*OPTION_LISTS, COMMON, BY_KIND, LONG):
            with self.subTest(name):
                content = content_of(name)
                self.assertFalse(content.startswith(b"\xef\xbb\xbf"))
                self.assertTrue(content.endswith(b"\r\n"))
                rest = content.replace(b"\r\n", b"")
                self.assertNotIn(b"\r", rest)
                self.assertNotIn(b"\n", rest)
                text = content.decode("utf-8")
                self.assertTrue(all(line and line == line.strip() for line in text[:-2].split("\r\n")))

    def test_option_lists_ship_sensible_entries_that_are_not_in_force(self):
        for name, (form, limit) in OPTION_LISTS.items():
            with self.subTest(name):
                lines = lines_of(name)
                self.assertEqual([line for line in lines if not re.fullmatch(form, line)], [])
                self.assertEqual({line[0] for line in lines}, {"0"})
                self.assertEqual(doubled([line[1:].upper() for line in lines]), [])
                self.assertTrue(8 <= len(lines) <= 20 <= limit, len(lines))

    def test_free_lists_have_one_form(self):
        for name, form in ((COMMON, f"{SUFFIX} {DESCRIPTION}"), (LONG, f"{SUFFIX} {DESCRIPTION}"),
                           (BY_KIND, f"{SUFFIX} [\u4e00-\u9fff]{{2,4}}：{DESCRIPTION}")):
            with self.subTest(name):
                self.assertEqual([line for line in lines_of(name) if not re.fullmatch(form, line)], [])
                self.assertEqual(doubled([suffix for suffix, _ in fields_of(name)]), [])
        for name in (COMMON, LONG):
            self.assertEqual([line for line in lines_of(name) if "：" in line], [])

    def test_free_lists_are_long_enough(self):
        self.assertGreaterEqual(len(lines_of(COMMON)), 150)
        self.assertGreaterEqual(len(lines_of(LONG)), 260)

    def test_the_long_list_is_sorted_by_suffix(self):
        suffixes = [suffix.encode() for suffix, _ in fields_of(LONG)]
        self.assertEqual(suffixes, sorted(suffixes))

    def test_kinds_stand_together_and_are_sorted_by_suffix(self):
        suffixes_of_kind, last = {}, None
        for suffix, description in fields_of(BY_KIND):
            kind = description.split("：")[0]
            if kind != last:
                self.assertNotIn(kind, suffixes_of_kind)
                suffixes_of_kind[kind] = []
                last = kind
            suffixes_of_kind[kind].append(suffix.encode())
        self.assertGreaterEqual(len(suffixes_of_kind), 10)
        for kind, suffixes in suffixes_of_kind.items():
            self.assertEqual(suffixes, sorted(suffixes), kind)

    def test_the_list_by_kind_is_the_common_list_with_kinds(self):
        without_kinds = [[suffix, description.split("：", 1)[1]] for suffix, description in fields_of(BY_KIND)]
        self.assertEqual(without_kinds, fields_of(COMMON))

    def test_the_long_list_holds_the_common_one_and_more(self):
        common, long = (dict(fields_of(name)) for name in (COMMON, LONG))
        self.assertEqual({suffix: long.get(suffix) for suffix in common}, common)
        self.assertGreater(len(long), len(common))


if __name__ == "__main__":
    folder = sys.argv.pop(1)
    unittest.main()
