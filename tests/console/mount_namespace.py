"""The part of a test by script that mounts: in a mount namespace of its own, where the machine allows one."""
import subprocess
import sys

from expectations import expect


def run_inside(script, *arguments):
    """Runs the script once more with --inside; says so where mounts are not allowed."""
    trial = subprocess.run(["unshare", "--mount", "mount", "-t", "tmpfs", "none", "/mnt"], capture_output=True, text=True)
    if trial.returncode != 0:
        print("mounts are not tried: this machine allows no mount namespace:", trial.stderr.strip())
        return
    done = subprocess.run(["unshare", "--mount", sys.executable, script, *arguments, "--inside"])
    expect("with mounts", done.returncode, 0)
