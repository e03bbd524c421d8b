"""A desktop of a test's own: display, window manager, message bus, home folder and assistive technology."""

import os
import pathlib
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402
from PIL import ImageGrab  # noqa: E402

PATIENCE = 40  # seconds, for a busy machine; nothing waits longer than it has to


def wait_until(what, condition):
    """The first true result of the condition. Controls and files may go while it looks at them."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            if result := condition():
                return result
        except (GLib.Error, OSError):
            pass
        time.sleep(0.03)
    raise AssertionError(f"waited in vain for {what}")


def forget_the_real_desktop(home):
    kept = {name: value for name, value in os.environ.items()
            if name == "PATH" or name.endswith("SAN_OPTIONS")}
    os.environ.clear()
    os.environ.update(kept, HOME=home, XDG_RUNTIME_DIR=home, LANG="C.UTF-8", QT_QPA_PLATFORM="xcb",
                      QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")


class Desktop:
    def __init__(self):
        self.processes = []
        self.folder = tempfile.TemporaryDirectory()
        self.home = pathlib.Path(self.folder.name)
        forget_the_real_desktop(self.folder.name)

    def __enter__(self):
        self.display = ":" + self.start_server("Xvfb", "-displayfd", "1", "-nolisten", "tcp", "-noreset",
                                               "-screen", "0", "1400x900x24")
        os.environ["DISPLAY"] = self.display
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_server("dbus-daemon", "--session", "--nofork",
                                                                   "--print-address")
        self.start("openbox")
        Atspi.init()
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    def start(self, *command, **options):
        self.processes.append(subprocess.Popen(command, **options))
        return self.processes[-1]

    def start_server(self, *command):
        """Returns the address that it says."""
        return self.start(*command, stdout=subprocess.PIPE, text=True).stdout.readline().strip()

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)

    def key(self, *keys):
        self.xdotool("key", *keys)

    def screenshot(self, path):
        ImageGrab.grab(xdisplay=self.display).save(path)
