#!/usr/bin/python3 -B
"""The program as an application of the desktop, from its first run to its end.

application_test.py VEILSHOT DRAG_SOURCE IMAGES FOLDER_FOR_A_SCREENSHOT_OF_THE_FAILURE"""

import os
import subprocess

from PIL import ImageGrab

from desktop import Atspi, wait_until
from program import Program, live

SHORTCUT = "super+shift+b"
HISTORY = "Keep protected copies in history"
PANEL_TEXT = "Press ⌘V, drop an image here, or open a file. Esc closes this."


class Application(Program):
    def windows(self, *what):
        """Those on the screen, of whatever program."""
        search = ["xdotool", "search", "--all", "--onlyvisible", *map(str, what)]
        # Windows may go while it looks at them, which it says.
        return subprocess.run(search, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout.split()

    def titled(self, title):
        return self.windows("--name", f"^{title}$")

    def activate(self, *what):
        window = wait_until(f"a window {what}", lambda: self.windows(*what))[0]
        self.desktop.xdotool("windowactivate", "--sync", window)

    def wait_for_window(self, title):
        return wait_until(f"the window {title!r}", lambda: self.titled(title))[0]

    def wait_for_no_window(self, title):
        wait_until(f"no window {title!r}", lambda: not self.titled(title))

    def start_again(self, *arguments):
        assert subprocess.run([self.veilshot, *arguments], timeout=60).returncode == 0

    def is_checked(self, role, name):
        return self.find(role, name).get_state_set().contains(Atspi.StateType.CHECKED)

    def run(self):
        for step in (self.walks_through_the_first_run, self.stays_without_windows,
                     self.takes_a_screenshot_over_another_application, self.puts_the_window_back,
                     self.serves_later_starts, self.changes_its_appearance,
                     self.ends_with_its_last_window_when_out_of_reach, self.quits):
            print(step.__name__, flush=True)
            step()

    def walks_through_the_first_run(self):
        self.wait_for_window("Welcome to Veilshot")
        self.find("label", "Step 1 of 5")
        self.desktop.xdotool("keydown", "Return", "sleep", 1.5, "keyup", "Return")
        self.find("label", "Step 2 of 5")  # one press, however long
        self.tab_to("push button", "Back")
        self.desktop.key("Return")
        self.find("label", "Step 1 of 5")
        self.desktop.key("Escape", "Return")  # Back has gone with the keyboard; yet there is a button for it
        self.find("label", "Step 2 of 5")
        self.press("push button", "Back")
        self.press("push button", "Close")
        self.wait_for_no_window("Welcome to Veilshot")
        self.start_again()
        self.wait_for_window("Welcome to Veilshot")
        assert not self.titled("Veilshot")
        for step in range(1, 6):
            self.find("label", f"Step {step} of 5")
            if step == 3:
                self.press("check box", HISTORY)
                wait_until("no history", lambda: not self.is_checked("check box", HISTORY))
            if step == 4:
                self.find("label", "Try it now")
                self.desktop.key(SHORTCUT)
                self.find("label", "That’s Quick Paste")
            assert not self.titled("Veilshot")
            self.desktop.key("Return")
        self.wait_for_no_window("Welcome to Veilshot")
        self.find("heading", "Paste a screenshot")

    def stays_without_windows(self):
        self.desktop.key("ctrl+w")
        self.wait_for_no_window("Veilshot")
        self.other = self.desktop.start(self.drag_source, self.images / "light-mail.png")
        self.activate("--pid", self.other.pid)

    def takes_a_screenshot_over_another_application(self):
        self.desktop.key(SHORTCUT)
        self.find("label", PANEL_TEXT)
        assert not self.titled("Veilshot")
        self.put_on_clipboard(b"words", "UTF8_STRING")
        self.desktop.key("ctrl+v")
        self.find("alert", "The clipboard doesn’t contain an image yet.")
        self.put_on_clipboard((self.images / "light-mail.png").read_bytes(), "image/png")
        self.desktop.key("ctrl+v")
        self.wait_for_window("Veilshot")
        self.find_gone("label", PANEL_TEXT)
        self.find("heading", r"\d+ areas hidden")

    def puts_the_window_back(self):
        self.desktop.key(SHORTCUT)
        self.find("label", PANEL_TEXT)
        self.wait_for_no_window("Veilshot")
        self.desktop.key("Escape")
        self.wait_for_window("Veilshot")
        self.find_gone("label", PANEL_TEXT)

        self.desktop.key("ctrl+w")
        self.wait_for_no_window("Veilshot")
        self.desktop.key(SHORTCUT)
        self.find("label", PANEL_TEXT)
        self.desktop.key("Escape")
        self.find_gone("label", PANEL_TEXT)
        assert not self.titled("Veilshot")

    def serves_later_starts(self):
        self.start_again()
        self.wait_for_window("Veilshot")
        self.find("heading", r"\d+ areas hidden")  # the session has lasted
        self.start_again(self.images / "plain-text.png")
        self.find("heading", "Nothing hidden yet")
        self.start_again("--quick-paste")
        self.find("label", PANEL_TEXT)
        self.desktop.key("Escape")
        self.wait_for_window("Veilshot")

    def changes_its_appearance(self):
        self.activate("--name", "^Veilshot$")
        self.desktop.key("ctrl+comma")
        self.wait_for_window("Settings")
        assert not self.is_checked("check box", HISTORY)  # as in the walkthrough

        def brightness():
            """Of what the windows show, on the average."""
            screen = ImageGrab.grab(xdisplay=self.desktop.display).convert("L")
            return sum(value * count for value, count in enumerate(screen.histogram())) / (1400 * 900)
        light = brightness()
        self.press("radio button", "Dark")
        wait_until("dark windows", lambda: brightness() < light / 2)
        self.press("radio button", "Light")
        wait_until("light windows", lambda: brightness() > 0.95 * light)
        self.desktop.key("Escape")
        self.wait_for_no_window("Settings")

    def ends_with_its_last_window_when_out_of_reach(self):
        """Another program has the shortcut, and there is no tray."""
        holder = self.process
        elsewhere = {"DBUS_SESSION_BUS_ADDRESS": self.desktop.start_server("dbus-daemon", "--session", "--nofork",
                                                                           "--print-address")}
        lonely = self.desktop.start(self.veilshot, env=os.environ | elsewhere)
        self.activate("--pid", lonely.pid, "--name", "^Veilshot$")
        self.desktop.key("alt+F4")
        assert lonely.wait(60) == 0
        assert holder.poll() is None

    def quits(self):
        """By the keyboard, and when the session ends. A start in between is not lost."""
        self.activate("--name", "^Veilshot$")
        self.desktop.key("ctrl+q")
        with self.errors.open("a") as errors:
            later = self.desktop.start(self.veilshot, stderr=errors)
        assert self.process.wait(60) == 0
        self.activate("--pid", later.pid, "--name", "^Veilshot$")
        later.terminate()
        assert later.wait(60) == 0
        errors = self.errors.read_text()
        assert "qrc:" not in errors, errors


if __name__ == "__main__":
    live(Application)
