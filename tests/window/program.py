"""The program as its user and a screen reader meet it."""

import io
import pathlib
import re
import subprocess
import sys

from PIL import Image

from desktop import Atspi, Desktop, wait_until


def picture(png):
    return Image.open(io.BytesIO(png)).convert("RGBA")


class Program:
    """Started anew, on the desktop given."""

    def __init__(self, desktop, veilshot, drag_source, images):
        self.desktop = desktop
        self.veilshot = veilshot
        self.drag_source = drag_source
        self.images = pathlib.Path(images)
        self.errors = desktop.home / "errors"
        with self.errors.open("a") as errors:
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


def live(kind):
    """Runs a program of the kind as the command line says. A failure leaves a screenshot behind."""
    *arguments, failures = sys.argv[1:]
    with Desktop() as desktop:
        program = kind(desktop, *arguments)
        try:
            program.run()
        except BaseException:
            desktop.screenshot(f"{failures}/{kind.__name__.lower()}.png")
            print(program.tree(), program.errors.read_text(), sep="\n", file=sys.stderr)
            raise
