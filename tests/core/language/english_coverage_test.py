"""Every Chinese text of the sources that a window may show has its English: the literals of the program, put together
over the lines, held against the rows of the tables. A literal is a whole row, or a piece of one between its holes.

What has none stands in the lists below, with its reason."""
import os
import re
import sys

sources = sys.argv[1]
folders = ("app", "browser", "cleanup", "compare", "core", "forms", "names", "platform", "power", "reports", "search",
           "ui_text")
chinese = re.compile("[\u3400-\u9fff\uff00-\uffef]")
# Files whose texts are stored, printed or names: never shown by a window as the program's words.
stored = {
    "core/settings/data_files.h",  # names of files
    "core/text/text_format.h",  # heads of stored files
    "app/still_to_come.cpp",  # names of handlers
    "forms/linux/own_display.cpp",  # what a terminal is told before there is a window
    "core/archives/rar_reader.cpp",  # "err.txt"
    "core/archives/zip_reader.cpp",  # the same
    "platform/linux/trash_info.cpp",  # names of files
    "search/walker.cpp",  # "err.txt"; what a window shows of it is asked for below
    "reports/export_spreadsheet.cpp",  # the exported rows; the same
}
asked_for = {
    "search/walker.cpp": ["Deferred Error Test,请选择新的目录", "正在搜索", "文件或目录太多，清单只含前 ", "搜索出:"],
    "reports/export_spreadsheet.cpp": ["没有符合条件的文件,请重新搜索或重新选择导出参数", "文件数＝", "预计:",
                                       " ,超过excel表的范围，只能转出前65534项", "取消[导出文件清单]"],
}
# Names of windows, controls and handlers, and pieces of names of files.
names = re.compile(r"[\w.]*(_[Mm]|_form|_Click|_m|M)|目录选择\..*|目录选择|写Tavrel环境文件|读[^ ]*的目录|读[^ ]*类型|显示关机提示|"
                   r"进入资源管理器_|.*Corvane帮助.*|帮助|中文?|\.ani 动画鼠标")
# Parts of texts that are put together at other places than the holes of their rows.
glued = {"个", "等", "条", "组", "行", "项", "个文件:", "最后一份", "比对后已变化", "用时:", "秒,", "等待正在运行的任务结束,",
         "按类型", "按目录", "相同文件的字节：", "副本"}  # the last one is looked for in names, never shown


def table_texts():
    found = []
    folder = os.path.join(sources, "core/language")
    for name in sorted(os.listdir(folder)):
        if name.startswith("english_"):
            found += [literals[0] for literals in rows(open(os.path.join(folder, name), encoding="utf-8").read())]
    return found


def literals_of(text):
    """String literals, neighbours joined, comments away."""
    text = re.sub(r"//[^\n]*", "", text)
    text = re.sub(r'"\s*\n\s*"', "", text)
    return [m.group(1) for m in re.finditer(r'"((?:[^"\\]|\\.)*)"', text)]


def rows(text):
    text = re.sub(r"//[^\n]*", "", text)
    text = re.sub(r'"\s*\n\s*"', "", text)
    return re.findall(r'\{\s*"((?:[^"\\]|\\.)*)",\s*"((?:[^"\\]|\\.)*)"\s*\}', text)


def pieces(literal):
    """The lines of a literal, without line ends and letters of captions."""
    for line in re.split(r"(?:\\r\\n|\\n|\\r)", literal):
        line = re.sub(r"\(&.\)", "", line).strip()
        if chinese.search(line):
            yield line


known = table_texts()
fixed = set()
for text in known:
    for piece in re.split(r"\{[nt]?\}", text):
        fixed.add(piece.strip())
patterns = [re.compile(".*".join(re.escape(piece) for piece in re.split(r"\{[nt]?\}", text))) for text in known
            if "{" in text]


def is_known(line):
    return line in fixed or line in glued or any(pattern.fullmatch(line) for pattern in patterns)


missing = []
count = 0
for folder in folders:
    for place, _, files in os.walk(os.path.join(sources, folder)):
        for name in files:
            path = os.path.relpath(os.path.join(place, name), sources)
            if not name.endswith((".cpp", ".h")) or path.startswith("core/language/") or path.startswith("ui_text/tables"):
                continue
            with open(os.path.join(sources, path), encoding="utf-8") as file:
                found = asked_for.get(path, []) if path in stored else literals_of(file.read())
            for literal in found:
                for line in pieces(literal):
                    count += 1
                    if not is_known(line) and not names.fullmatch(line):
                        missing.append(f"{path}: {line}")
if count < 300:
    missing.append(f"only {count} texts were found")
for line in missing:
    print(line)
sys.exit(1 if missing else 0)
