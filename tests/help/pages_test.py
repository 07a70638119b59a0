"""The pages of the help: links that lead somewhere, a way in to each page, and every message of the program.

Arguments: the folder of the help, the folder of the sources, the folder of the pictures (or - where none are made).
"""
import html
import os
import re
import sys
import unittest
from html.parser import HTMLParser

help_folder, sources, pictures = "", "", ""
LANGUAGES = ("zh_CN", "en")
HAN = re.compile("[\u4e00-\u9fff]")


def content_of(*place):
    with open(os.path.join(*place), encoding="utf-8") as file:
        return file.read()


def pages(language):
    return sorted(name for name in os.listdir(os.path.join(help_folder, language)) if name.endswith(".htm"))


class Page(HTMLParser):
    """Links, pictures and words of a page; what is opened and not closed is an error."""

    VOID = {"meta", "link", "img", "hr", "br"}

    def __init__(self, text):
        super().__init__()
        self.links, self.images, self.words, self.open, self.errors = [], [], [], [], []
        self.feed(text)
        self.close()
        self.errors += self.open

    def handle_starttag(self, tag, attributes):
        named = dict(attributes)
        if tag == "a":
            self.links.append(named["href"])
        if tag == "img":
            self.images.append(named["src"])
        if tag not in self.VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.errors.append("/" + tag)

    def handle_data(self, data):
        self.words.append(data)


def parsed(language):
    return {name: Page(content_of(help_folder, language, name)) for name in pages(language)}


class LinksTest(unittest.TestCase):
    def test_every_page_is_well_formed(self):
        for language in LANGUAGES:
            for name, page in parsed(language).items():
                self.assertEqual(page.errors, [], f"{language}/{name}")

    def test_no_link_is_dead(self):
        count = 0
        for language in LANGUAGES:
            there = set(pages(language))
            for name, page in parsed(language).items():
                for link in page.links:
                    self.assertIn(link, there, f"{language}/{name}")
                    count += 1
        self.assertGreater(count, 200)

    def test_no_page_is_without_a_way_in(self):
        for language in LANGUAGES:
            graph = parsed(language)
            reached, ahead = set(), ["contents.htm"]
            while ahead:
                name = ahead.pop()
                if name not in reached:
                    reached.add(name)
                    ahead += graph[name].links
            self.assertEqual(reached, set(graph), language)
            # The contents name each page once, and a page leads on from itself.
            contents = graph["contents.htm"].links
            self.assertEqual(sorted(contents + ["contents.htm"]), sorted(graph), language)

    def test_both_languages_have_the_same_pages(self):
        self.assertEqual(pages("zh_CN"), pages("en"))

    def test_every_topic_of_the_program_has_its_page(self):
        table = re.search(r"int topics\[\] = \{([^}]*)\}", content_of(sources, "ui_text", "help_topics.cpp")).group(1)
        wanted = {f"aux{int(number):02}_Corvane帮助_Link.htm" for number in table.split(",")}
        self.assertEqual(wanted | {"contents.htm"}, set(pages("zh_CN")))
        opened = set()
        for folder, _, files in os.walk(sources):
            if os.path.relpath(folder, sources).split(os.sep)[0] in ("build", "tests", ".git"):
                continue
            for name in files:
                if name.endswith(".cpp"):
                    code = content_of(folder, name)
                    opened |= set(re.findall(r"(?:help_mode_opens|open_topic)\([\w.]+, (\d+)\)", code))
                    opened |= set(re.findall(r'bind_help\("\w+", (\d+)\)', code))
        self.assertGreater(len(opened), 8)
        for number in opened:
            self.assertIn(f"aux{int(number):02}_Corvane帮助_Link.htm", wanted)

    def test_the_manuscript_leads_to_both_languages(self):
        # It stands in a folder beside that of the help.
        for link in Page(content_of(help_folder, "manuscript.htm")).links:
            self.assertTrue(link.startswith("../help/"), link)
            self.assertTrue(os.path.isfile(os.path.join(help_folder, link[len("../help/"):])), link)

    def test_every_picture_is_made_in_light_and_dark(self):
        made = 0
        for language in LANGUAGES:
            for name, page in parsed(language).items():
                for image in page.images:
                    own = "en/" if language == "en" else ""
                    self.assertRegex(image, r"^\.\./pictures/" + own + r"\w+_light_1\.png$", name)
                    if pictures == "-":
                        continue
                    for palette in ("light", "dark"):
                        file = own + os.path.basename(image).replace("_light_", f"_{palette}_")
                        self.assertTrue(os.path.isfile(os.path.join(pictures, file)), file)
                        made += 1
        if pictures == "-":
            self.skipTest("no pictures in this build")
        self.assertGreater(made, 40)


# ---- The messages. ----

SCANNED = ("app", "core", "search", "compare", "browser", "names", "cleanup", "reports", "power", "ui_text", "platform")
# A call that shows words, and the member that holds those of a box or a question.
SHOWS = re.compile(r"\b(?:complain|inform|confirm|ask_text|choose_files?|choose_colour|report_write_failure)\s*\(|"
                   r"\b(?:box|question)\.(?:text|detail|title)\s*(?:=|\+=)|\boutcome::(?:failure|lack)\s*\(|"
                   r"\bdesktop_failure\s*\(|\bfailed_or_lacking\s*\(|\bquestion\s*\((?=form)")
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
NAME = re.compile(r"\b[a-z_][a-z_0-9]*\b")
# A span without words of its own: a declaration, or words that another place or the system has said (a failure to write
# is told again where it kept the machine up).
HANDED_ON = re.compile(r"const std::string&|const char\*|\breason\b|\berror\b|\bfailures?\b|^words$|^form$|^what$|"
                       r"^program_name$|^\"Error\"$|\bunsaved$")
# The texts of fields that happen to be called a box in the code.
FIELDS = {"MonthView1.text", "suffix", "','"}
# Spans whose words stand in another file, or in a table: the file, and the texts in it that are theirs.
ELSEWHERE = {
    "stake_words(stake_of(form))": ("cleanup/stake.cpp", ".*"),
    "tally_words(tally)": ("cleanup/restore_form.cpp", ".*(已恢复:|原处已有|没有恢复|没有写成).*"),
    "words.title": ("names/name_tasks.cpp", ".*完毕|.*有:"),
    "view.no_pairs": ("names/name_view.cpp", "没有.*"),
    "std::string(words.prompt)": ("browser/type_filter.cpp", ".*文件类型.*"),
    "std::string(prompt)": ("search/options_handlers.cpp", "输入.*"),
}


def without_comments(code):
    """Comments become blanks; what looks like one inside a text stays."""
    return re.sub(r'("(?:[^"\\\n]|\\.)*")|//[^\n]*|/\*.*?\*/',
                  lambda found: found.group(1) or " ", code, flags=re.S)


def span_from(code, start):
    """From the place behind an opening bracket, or behind =, to its end."""
    depth, at, in_text = 0, start, False
    while at < len(code):
        unit = code[at]
        if in_text:
            if unit == "\\":
                at += 1
            elif unit == '"':
                in_text = False
        elif unit == '"':
            in_text = True
        elif unit in "({[":
            depth += 1
        elif unit in ")}]":
            if depth == 0:
                return code[start:at]
            depth -= 1
        elif unit == ";":
            return code[start:at]
        at += 1
    return code[start:]


def literals(code):
    # Two literals with nothing but blanks between are one.
    joined = re.sub(r'(?<!\\)"\s+"', "", code)
    return [text for text in LITERAL.findall(joined) if HAN.search(text)]


def assigned(code, name):
    """The texts that a name of the file is given: as a constant, a parameter's table, by = += or append."""
    texts = []
    for found in re.finditer(rf"\b{name}\b(?:\[\])?\s*(?:=|\+=|\{{)|\b{name}\b\s*\.append\s*\(", code):
        # A chain of append is one statement.
        end = code.find(";", found.end())
        texts += literals(code[found.end():end])
    return texts


def constants():
    """The texts that headers give a name, for every file that includes them."""
    found = {}
    for top in SCANNED:
        for folder, _, files in os.walk(os.path.join(sources, top)):
            for name in files:
                if name.endswith(".h"):
                    code = without_comments(content_of(folder, name))
                    for each in re.finditer(r"constexpr char (\w+)\[\] =([^;]*);", code):
                        found[each[1]] = literals(each[2])
    return found


def messages():
    """The texts that the program shows in boxes, by file; the calls that hold none of their own; how many calls."""
    texts, silent, calls = {}, [], 0
    named = constants()
    for top in SCANNED:
        for folder, _, files in os.walk(os.path.join(sources, top)):
            for name in sorted(files):
                if not name.endswith((".cpp", ".h")):
                    continue
                path = os.path.join(folder, name)
                code = without_comments(content_of(path))
                for found in SHOWS.finditer(code):
                    words = span_from(code, found.end())
                    own = literals(words)
                    for each in NAME.findall(LITERAL.sub("", words)):
                        own += assigned(code, each) + named.get(each, [])
                    calls += 1
                    for span, (file, kind) in ELSEWHERE.items():
                        if span in words:
                            there = without_comments(content_of(sources, file))
                            own += [text for text in literals(there) if re.fullmatch(kind, text)]
                    if own:
                        texts.setdefault(path, []).extend(own)
                    else:
                        silent.append((os.path.relpath(path, sources), words.strip()))
    return texts, silent, calls


def plain(text):
    return re.sub(r"\s+", "", html.unescape(text)).replace("　", "")


def pieces(text):
    """What of a text stands fixed: between line breaks, without blanks, at least two Chinese signs."""
    text = text.replace('\\"', '"').replace("\\t", " ").replace("\\\\", "\\")
    for piece in re.split(r"\\r\\n|\\n|\\r|…", text):
        piece = plain(piece)
        if len(HAN.findall(piece)) >= 2:
            yield piece


# Texts that stand in a span and are no words of a box: captions, panels, data files that the reader of the code meets
# there. Each with its reason.
NO_MESSAGE = {
    "提示": "the title of every box",
    "输入框": "the title of every input box",
    "_Corvane帮助_Link.htm": "the name of a page",
}


class MessagesTest(unittest.TestCase):
    def test_every_message_is_on_the_page_of_messages(self):
        texts, _, _ = messages()
        for language in LANGUAGES:
            page = plain("".join(Page(content_of(help_folder, language, "aux06_Corvane帮助_Link.htm")).words))
            missing = sorted({f"{os.path.relpath(path, sources)}: {piece}" for path, shown in texts.items()
                              for text in shown for piece in pieces(text)
                              if piece not in page and piece not in NO_MESSAGE})
            self.assertEqual(missing, [], language)

    def test_the_account_is_not_empty_and_knows_its_own(self):
        texts, silent, calls = messages()
        found = {piece for shown in texts.values() for text in shown for piece in pieces(text)}
        # One of each way of telling: a literal, a constant of the file, appended words, a box's own text, a port.
        for known in ("没有相同文件", "目录太多，只查找了前", "将所选定的文件放入回收站吗?", "没查到", "不能移到回收站。",
                      "此时系统信息不可用", "保留", "释放空间:", "因文件内容不一定相同,请在资源管理器中选择删除",
                      "没有相同_文件名", "仅显示指定的文件类型,如*.jpg*.gif", "输入新增的<不搜索>的文件类型,如:xls",
                      "个,不能恢复", "检查目录相同完毕"):
            self.assertIn(known, found)
        self.assertGreater(calls, 90)
        self.assertGreater(len(found), 70)
        self.assertEqual([each for each in silent if not HANDED_ON.search(each[1]) and each[1] not in FIELDS], [],
                         "a box whose words are not understood: add the file to ELSEWHERE")

    def test_a_missing_message_would_be_seen(self):
        page = plain("".join(Page(content_of(help_folder, "zh_CN", "aux06_Corvane帮助_Link.htm")).words))
        self.assertNotIn("这句话不在页上", page)
        self.assertEqual(list(pieces("甲乙\\r\\n丙 丁…\\t")), ["甲乙", "丙丁"])
        self.assertEqual(literals('call("甲" \n "乙" + x + "b")'), ["甲乙"])
        self.assertEqual(span_from('f(a(1), "x)y"); g(', 2), 'a(1), "x)y"')


if __name__ == "__main__":
    help_folder, sources, pictures = sys.argv[1:4]
    if "--list" in sys.argv:
        for path, shown in messages()[0].items():
            print(os.path.relpath(path, sources), shown)
        print(*messages()[1], sep="\n")
        sys.exit()
    unittest.main(argv=sys.argv[:1])
