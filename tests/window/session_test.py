#!/usr/bin/python3 -B
"""One session through the real program, as its user and a screen reader live through it.

session_test.py VEILSHOT DRAG_SOURCE IMAGES FOLDER_FOR_A_SCREENSHOT_OF_THE_FAILURE"""

import collections
import json
import os
import subprocess

from PIL import ImageChops

from desktop import Atspi, wait_until
from program import Program, live, picture

LABELS = {"address": "Addresses", "email": "Email addresses", "identity": "Identity details", "name": "Names",
          "payment": "Payment details", "person": "People", "phone": "Phone numbers", "secret": "Secrets",
          "web": "Web details"}


class Session(Program):
    def __init__(self, *arguments):
        os.environ["VEILSHOT_REDUCED_MOTION"] = "1"  # the other test is the one with motion
        super().__init__(*arguments)

    # What the program says without a window.

    def protected(self, image, *options):
        command = [self.veilshot, "protect", self.images / image, *options, "-o", "-"]
        return picture(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)

    def detected_kinds(self, image):
        command = [self.veilshot, "detect", "--json", self.images / image]
        report = json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)
        return collections.Counter(region["kind"] for region in report["regions"])

    def kept_copies(self):
        folder = self.desktop.home / ".local/share/Veilshot/History"
        entries = json.loads((folder / "history.json").read_text())
        return [picture((folder / f"{entry['id']}.png").read_bytes()) for entry in entries]

    # The session.

    def run(self):
        for step in (self.walks_through_the_first_run, self.starts_empty, self.refuses_text,
                     self.scans_what_is_pasted, self.copies, self.draws_an_area, self.exports,
                     self.unblurs_an_area, self.reopens_a_copy, self.takes_a_dropped_file, self.ends):
            print(step.__name__, flush=True)
            step()

    def walks_through_the_first_run(self):
        for step in range(1, 6):
            self.find("label", f"Step {step} of 5")
            self.desktop.key("Return")

    def starts_empty(self):
        self.find("heading", "Paste a screenshot")
        self.find("label", "Names, emails, phone numbers, card numbers and faces get blurred.*")
        self.find("label", "Or drop an image into this window.")
        self.find("push button", "Open Image…")
        assert not self.found("list", "Recent")
        self.desktop.xdotool("search", "--sync", "--onlyvisible", "--name", "^Veilshot$",
                             "windowactivate", "--sync", "windowmove", 100, 60)

    def refuses_text(self):
        self.put_on_clipboard(b"words", "UTF8_STRING")
        self.desktop.key("ctrl+v")
        alert = self.find("alert", "Couldn’t use that image")
        assert alert.get_description() == (
            "The clipboard doesn’t contain an image. Copy a screenshot first, then try again.")
        wait_until("the focus on OK", lambda: self.focused() == ("push button", "OK"))
        self.desktop.key("Return")
        self.find_gone("alert", ".*")

    def scans_what_is_pasted(self):
        kinds = self.detected_kinds("light-mail.png")
        self.summary = f"{kinds.total()} areas hidden"
        self.put_on_clipboard((self.images / "light-mail.png").read_bytes(), "image/png")
        self.desktop.key("ctrl+v")
        self.find("heading", self.summary)
        labels = [node.get_name() for node in self.controls() if node.get_role_name() == "label"]
        for kind, count in kinds.items():
            assert labels[labels.index(LABELS[kind]) + 1] == str(count), (kind, count, labels)

    def copies(self):
        self.desktop.key("ctrl+shift+c")
        self.find("label", "Copied to clipboard")
        expected = self.protected("light-mail.png")
        self.find_on_clipboard(expected)
        wait_until("the kept copy", lambda: self.kept_copies() == [expected])

    def draws_an_area(self):
        self.tab_to("radio button", "Smooth blur")
        self.desktop.key("Right", "Right")
        wait_until("the focus on Blackout", lambda: self.focused() == ("radio button", "Blackout"))
        self.find_gone("slider", ".*")
        self.blackened = self.protected("light-mail.png", "--style", "blackout")

        self.press("push button", "Draw Blur Region")
        self.find("push button", "Done")
        place = self.find("image", "Screenshot preview").get_extents(Atspi.CoordType.SCREEN)
        width, height = self.blackened.size
        scale = min(place.width / width, place.height / height)
        left = place.x + (place.width - width * scale) / 2
        top = place.y + (place.height - height * scale) / 2
        area = (700, 400, 850, 480)  # of the image, where it is white
        x1, y1, x2, y2 = (round(side + scale * edge) for side, edge in zip((left, top) * 2, area))
        self.desktop.xdotool("mousemove", x1, y1, "mousedown", 1, "mousemove", x2, y2, "mouseup", 1)
        self.find("label", "1 region")
        self.press("push button", "Done")

        self.desktop.key("ctrl+shift+c")

        def is_drawn():
            difference = ImageChops.difference(picture(self.clipboard()), self.blackened).convert("RGB")
            return all(abs(edge - wanted) <= 5 for edge, wanted in zip(difference.getbbox(), area))
        wait_until("the drawn area on the clipboard", is_drawn)
        self.press("push button", "Undo")
        self.find_gone("label", "1 region")

    def exports(self):
        path = self.desktop.home / "exported.png"
        self.desktop.key("ctrl+s")
        self.find("text", "File name:")
        wait_until("the focus on the name", lambda: self.focused() == ("text", "File name:"))
        self.desktop.key("ctrl+a")
        self.desktop.xdotool("type", path)
        self.desktop.key("Return")
        wait_until("the exported file", path.exists)
        assert picture(path.read_bytes()) == self.blackened
        wait_until("the newer kept copy", lambda: self.kept_copies() == [self.blackened])

    def unblurs_an_area(self):
        count = int(self.summary.split()[0])
        self.press("push button", f"Review {count} areas")
        row = self.find("list item", "Address, .+")
        name = row.get_name()
        assert row.get_child_count() == 0
        assert [row.get_action_name(action) for action in range(row.get_n_actions())] == ["Unblur"]
        row.do_action(0)
        self.find("heading", f"{count - 1} areas hidden")
        self.press("push button", "Restore last removed")
        self.find("heading", self.summary)
        self.tab_to("list item", name)
        self.desktop.key("Return")
        self.press("push button", "Restore last removed")
        self.find_gone("push button", "Restore last removed")

    def reopens_a_copy(self):
        self.press("push button", "Start Over")
        self.find("heading", "Paste a screenshot")
        self.tab_to("push button", f"Protected screenshot, {self.summary}")
        self.desktop.key("Return")
        self.find("dialog", ".*")
        self.desktop.key("ctrl+c")
        self.find_on_clipboard(self.blackened)
        self.desktop.key("Escape")
        self.find_gone("dialog", ".*")

    def takes_a_dropped_file(self):
        source = self.desktop.start(self.drag_source, self.images / "dark-kunde.png")
        self.desktop.xdotool("search", "--sync", "--onlyvisible", "--pid", source.pid)
        self.desktop.xdotool("mousemove", 20, 20, "mousedown", 1, "mousemove", 30, 30, "mousemove", 400, 300,
                             "mousemove", 410, 310)
        self.find("heading", "Drop to open")
        self.desktop.xdotool("mouseup", 1)
        self.find("heading", f"{self.detected_kinds('dark-kunde.png').total()} areas hidden")

    def ends(self):
        self.desktop.key("ctrl+q")
        assert self.process.wait(60) == 0
        errors = self.errors.read_text()
        assert "qrc:" not in errors, errors


if __name__ == "__main__":
    live(Session)
