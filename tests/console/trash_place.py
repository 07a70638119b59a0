"""A home with a trash, a program folder and a tree of its own, for tests of deletion on a real disk."""
import os
import subprocess
import urllib.parse

from expectations import expect
from program_folder import option_lists


class place:
    """A home with a trash, a program folder and a tree of its own."""

    def __init__(self, console, root, data_root=None):
        self.console = console
        self.root = root
        self.data = os.path.join(data_root or root, "data")
        self.program = os.path.join(root, "program")
        self.home = os.path.join(root, "home")
        for folder in (self.data, self.program, self.home):
            os.makedirs(folder)
        for name in option_lists:
            open(os.path.join(self.program, name), "w").close()
        self.trash = os.path.join(self.home, ".local/share/Trash")
        self.environment = dict(os.environ, HOME=self.home, XDG_DATA_HOME=os.path.join(self.home, ".local/share"))

    def write(self, name, content):
        path = os.path.join(os.fsencode(self.data), name if isinstance(name, bytes) else name.encode())
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)
        return path

    def start(self, script, **more):
        run = subprocess.Popen([self.console, "--program-dir", self.program, "--script", "-"], stdin=subprocess.PIPE,
                               stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=self.environment, **more)
        run.stdin.write(script.encode())
        run.stdin.close()
        return run

    def run(self, script, status=0):
        run = self.start(script)
        output = run.stdout.read().decode("utf-8", "surrogateescape")
        run.stdout.close()
        expect("status", run.wait(), status)
        return output

    def trashed(self):
        """Original path and content of everything in the trash."""
        found = {}
        files = os.path.join(self.trash, "files")
        for name in os.listdir(os.fsencode(files)) if os.path.isdir(files) else []:
            info = os.path.join(os.fsencode(self.trash), b"info", name + b".trashinfo")
            with open(info, "rb") as file:
                lines = file.read().splitlines()
            path = next(line[5:] for line in lines if line.startswith(b"Path="))
            date = [line for line in lines if line.startswith(b"DeletionDate=")]
            expect("a time of deletion", len(date), 1)
            with open(os.path.join(os.fsencode(files), name), "rb") as file:
                found[urllib.parse.unquote_to_bytes(path)] = file.read()
        return found
