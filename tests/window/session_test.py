#!/usr/bin/python3 -B
"""One session through the real program, as its user and a screen reader live through it.

session_test.py VEILSHOT DRAG_SOURCE IMAGES FOLDER_FOR_A_SCREENSHOT_OF_THE_FAILURE"""

import collections
import io
import json
import pathlib
import re
import subprocess
import sys

from PIL import Image, ImageChops

from desktop import Atspi, Desktop, wait_until

LABELS = {"address": "Addresses", "email": "Email addresses", "identity": "Identity details", "name": "Names",
          "payment": "Payment details", "person": "People", "phone": "Phone numbers", "secret": "Secrets",
          "web": "Web details"}


def picture(png):
    return Image.open(io.BytesIO(png)).convert("RGBA")


class Session:
    def __init__(self, desktop, veilshot, drag_source, images):
        self.desktop = desktop
        self.veilshot = veilshot
        self.drag_source = drag_source
        self.images = pathlib.Path(images)
        self.errors = desktop.home / "errors"
        with self.errors.open("w") as errors:
            self.process = desktop.start(veilshot, stderr=errors)

    # What a screen reader sees.

    def controls(self, node=None):
        """Those that show, in the order of the tree."""
        node = node or Atspi.get_desktop(0)
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child and child.get_state_set().contains(Atspi.StateType.SHOWING):
                yield child
                yield from self.controls(child)

    def found(self, role, name):
        return next((node for node in self.controls()
                     if node.get_role_name() == role and re.fullmatch(name, node.get_name())), None)

    def find(self, role, name):
        return wait_until(f"{role} {name!r}", lambda: self.found(role, name))

    def find_gone(self, role, name):
        wait_until(f"no {role} {name!r}", lambda: not self.found(role, name))

    def press(self, role, name):
        self.find(role, name).do_action(0)

    def focused(self):
        """The innermost one."""
        focused = [node for node in self.controls() if node.get_state_set().contains(Atspi.StateType.FOCUSED)]
        return (focused[-1].get_role_name(), focused[-1].get_name()) if focused else None

    def tab_to(self, *control):
        """With the Tab key alone."""
        stops = [self.focused()]
        while stops[-1] != control:
            assert len(stops) < 40, f"Tab does not reach {control}: {stops}"
            self.desktop.key("Tab")
            stops.append(wait_until(f"the next stop after {stops}",
                                    lambda: (now := self.focused()) and now != stops[-1] and now))

    def tree(self):
        return "\n".join(" ".join([node.get_role_name(), repr(node.get_name())]
                                  + [state.value_nick for state in node.get_state_set().get_states()])
                         for node in self.controls())

    # The clipboard, to another program.

    def clipboard(self, target="image/png"):
        command = ["xclip", "-selection", "clipboard", "-o", "-t", target]
        return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    def put_on_clipboard(self, data, target):
        subprocess.run(["xclip", "-selection", "clipboard", "-t", target], input=data, check=True,
                       stdout=subprocess.DEVNULL)
        wait_until("the clipboard", lambda: self.clipboard(target) == data)

    def find_on_clipboard(self, expected):
        wait_until("the picture on the clipboard",
                   lambda: (png := self.clipboard()) and picture(png) == expected)

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
        for step in (self.starts_empty, self.refuses_text, self.scans_what_is_pasted, self.copies,
                     self.draws_an_area, self.exports, self.unblurs_an_area, self.reopens_a_copy,
                     self.takes_a_dropped_file, self.ends):
            print(step.__name__, flush=True)
            step()

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
        row = self.find("list item", ".+, .+")
        assert row.get_child_count() == 0
        assert [row.get_action_name(action) for action in range(row.get_n_actions())] == ["Unblur"]
        self.tab_to("list item", row.get_name())
        for unblur in (lambda: row.do_action(0), lambda: self.desktop.key("Return")):
            unblur()
            self.find("heading", f"{count - 1} areas hidden")
            self.press("push button", "Restore last removed")
            self.find("heading", self.summary)

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
        self.desktop.key("alt+F4")
        assert self.process.wait(60) == 0
        errors = self.errors.read_text()
        assert "qrc:" not in errors, errors


if __name__ == "__main__":
    program, drag_source, images, failures = sys.argv[1:]
    with Desktop() as desktop:
        session = Session(desktop, program, drag_source, images)
        try:
            session.run()
        except BaseException:
            desktop.screenshot(f"{failures}/window-session.png")
            print(session.tree(), session.errors.read_text(), sep="\n", file=sys.stderr)
            raise
