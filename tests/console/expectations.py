"""What a test by script expects: every difference is told, and the script ends with 1 if there was one."""
import sys

_failures = 0


def expect(what, found, wanted):
    global _failures
    if found != wanted:
        _failures += 1
        print(f"{what}:\n  found    {str(found)[:2000]!r}\n  expected {str(wanted)[:2000]!r}")


def finish():
    sys.exit(1 if _failures else 0)
