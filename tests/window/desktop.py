"""A desktop of the test's own: display, window manager, message bus, home folder and assistive technology."""

import os
import pathlib
import signal
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402
from PIL import ImageGrab  # noqa: E402

PATIENCE = 8  # seconds, for a busy machine; nothing waits longer than it has to


def wait_until(what, condition):
    """The first true result of the condition. Controls may come and go while it looks at them."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            if result := condition():
                return result
        except gi.repository.GLib.Error:
            pass
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain: {what}")
        time.sleep(0.03)


class Desktop:
    def __init__(self):
        self.processes = []
        self.folder = tempfile.TemporaryDirectory()
        self.home = pathlib.Path(self.folder.name)
        kept = {name: os.environ[name] for name in os.environ
                if name == "PATH" or name == "QT_SCALE_FACTOR" or name == "QT_QUICK_BACKEND" or name.endswith("SAN_OPTIONS")}
        os.environ.clear()  # nothing of the desktop that the test runs on
        os.environ.update(kept, HOME=str(self.home), XDG_RUNTIME_DIR=str(self.home), LANG="C.UTF-8", QT_QPA_PLATFORM="xcb",
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.display = ":" + self._server("Xvfb", "-displayfd", "1", "-nolisten", "tcp", "-noreset",
                                          "-screen", "0", "1400x900x24")
        os.environ["DISPLAY"] = self.display
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._server("dbus-daemon", "--session", "--print-address",
                                                              "--nofork")
        self.start("openbox")
        Atspi.init()
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)

    def start(self, *command, **options):
        process = subprocess.Popen(command, **options)
        self.processes.append(process)
        return process

    def _server(self, *command):
        return self.start(*command, stdout=subprocess.PIPE, text=True).stdout.readline().strip()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.PIPE,
                              text=True).stdout.strip()

    def key(self, *keys):
        self.xdotool("key", *keys)

    def screenshot(self, path):
        ImageGrab.grab(xdisplay=self.display).save(path)
