"""The manual page and the completions that the build has made: the page without a warning of groff and mandoc, the
completions loaded by the shells themselves. A tool that is not installed is passed over, which is said.

completions_test.py CONSOLE SHARE
"""
import os
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time

from expectations import expect, finish

console, share = map(os.path.abspath, sys.argv[1:3])
manual = os.path.join(share, "man/man1/corvane-console.1")
bash_file = os.path.join(share, "bash-completion/completions/corvane-console")
zsh_file = os.path.join(share, "zsh/site-functions/_corvane-console")
options = set(re.findall(r"^  (--[a-z-]+)", subprocess.run([console, "--help"], capture_output=True, text=True).stdout, re.M))
formats = {"pairs", "groups", "json", "csv", "null", "html"}


def has(tool):
    if shutil.which(tool):
        return True
    print(f"{tool} is not installed: passed over")
    return False


expect("options of --help", len(options) > 10, True)

if has("groff"):
    done = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z", manual], capture_output=True, text=True)
    expect("groff", (done.returncode, done.stderr), (0, ""))
    done = subprocess.run(["groff", "-man", "-Tascii", "-P-c", manual], capture_output=True, text=True)
    text = re.sub(".\b", "", done.stdout)
    for name in options:
        expect(f"{name} in the manual", re.search(rf"^ +{name}( |$)", text, re.M) is not None, True)
    for name in formats:
        expect(f"{name} in the manual", re.search(rf"^ +{name}( |$)", text, re.M) is not None, True)
    expect("a backslash", r"a backslash in a path is written \\." in re.sub(r"\s+", " ", text).lower(), True)
    expect("a suffix that begins a line or not", ".jpg,.png" in text and ".tar.gz" in text, True)
if has("mandoc"):
    # A page without a date is meant: the version says how old it is.
    done = subprocess.run(["mandoc", "-Tlint", manual], capture_output=True, text=True)
    told = [line for line in (done.stdout + done.stderr).splitlines() if "missing date" not in line]
    expect("mandoc", told, [])


def bash_offers(folder, *words):
    script = (f'source "{bash_file}"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
              '_corvane_console; printf "%s\\n" "${COMPREPLY[@]}"')
    done = subprocess.run(["bash", "--norc", "-c", script, "bash", "corvane-console", *words], capture_output=True,
                          text=True, cwd=folder)
    expect(f"bash, {words}", done.stderr, "")
    return set(done.stdout.split("\n")) - {""}


class zsh_session:
    """A shell on a terminal, with the completion in its path."""

    def __init__(self, folder):
        master, slave = pty.openpty()
        environment = dict(os.environ, TERM="dumb", ZDOTDIR=folder, LC_ALL="C.UTF-8", PATH=os.path.dirname(console) + ":" + os.environ["PATH"])
        self.shell = subprocess.Popen(["zsh", "-f", "-i"], stdin=slave, stdout=slave, stderr=slave, cwd=folder,
                                      env=environment, start_new_session=True)
        os.close(slave)
        self.master = master
        self.text = ""
        self.send(f'fpath=("{os.path.dirname(zsh_file)}" $fpath); autoload -U compinit; compinit -u -D; '
                  "LISTMAX=1000; unsetopt beep; setopt noalwayslastprompt; PS1='re''ady> '\n")
        self.wait_for("ready> ")

    def send(self, text):
        os.write(self.master, text.encode())

    def wait_for(self, pattern):
        patience = time.monotonic() + 30
        while not re.search(pattern, self.text) and time.monotonic() < patience:
            if select.select([self.master], [], [], 1)[0]:
                self.text += os.read(self.master, 65536).decode("utf-8", "replace")
        if not re.search(pattern, self.text):
            self.shell.kill()
            expect(f"zsh shows {pattern}", self.text, "")
            finish()
        shown, self.text = self.text, ""
        return shown

    def offers(self, line, pattern):
        """What is shown for a line and a tab, up to a pattern; the line is then thrown away."""
        self.send(line + "\t")
        shown = self.wait_for(pattern)
        self.send("\x15echo the ''end\n")  # in place of the line
        self.wait_for("the end")
        return shown

    def end(self):
        self.send("exit\n")
        self.shell.wait(timeout=60)
        os.close(self.master)


with tempfile.TemporaryDirectory(prefix="corvane_shells_") as folder:
    os.makedirs(os.path.join(folder, "a directory"))
    os.makedirs(os.path.join(folder, "another"))
    open(os.path.join(folder, "a file"), "w").close()
    if has("bash"):
        expect("bash, all options", bash_offers(folder, "--"), options)
        expect("bash, some options", bash_offers(folder, "--s"), {name for name in options if name.startswith("--s")})
        expect("bash, formats", bash_offers(folder, "--format", ""), formats)
        expect("bash, a format", bash_offers(folder, "--format", "js"), {"json"})
        expect("bash, behind the sign", bash_offers(folder, "--format", "=", "c"), {"csv"})
        expect("bash, at the sign", bash_offers(folder, "--format", "="), formats)
        expect("bash, directories", bash_offers(folder, "a"), {"a directory", "another"})
        expect("bash, a directory to leave out", bash_offers(folder, "--exclude", "an"), {"another"})
        expect("bash, a script", bash_offers(folder, "--script", "a f"), {"a file"})
        done = subprocess.run(["bash", "--norc", "-c", f'source "{bash_file}"; complete -p corvane-console'],
                              capture_output=True, text=True)
        expect("bash, bound", done.stdout.strip(), "complete -F _corvane_console corvane-console")
    if has("zsh"):
        done = subprocess.run(["zsh", "-n", zsh_file], capture_output=True, text=True)
        expect("zsh, syntax", (done.returncode, done.stderr), (0, ""))
        session = zsh_session(folder)
        shown = session.offers("corvane-console --", "--version")
        expect("zsh, options", {name for name in options if name not in shown}, set())
        session.offers("corvane-console --form", "--format=")
        session.offers("corvane-console --format=js", "json")
        session.offers("corvane-console --format cs", "csv")
        session.offers("corvane-console --exclude=an", "another/")
        session.offers("corvane-console an", "another/")
        session.end()

finish()
