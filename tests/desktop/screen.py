# SPDX-License-Identifier: MIT
"""What one program shows, as it tells assistive technology."""

from dataclasses import dataclass

import pyatspi
from gi.repository import GLib

from simulated_tool import wait_for

# What asking a control throws that has gone meanwhile.
GONE = (LookupError, ValueError, GLib.Error)


@dataclass
class Control:
    """A control that is on show, as it was when it was read."""

    node: pyatspi.Accessible
    role: int
    name: str
    states: list

    def has_state(self, state):
        return state in self.states

    def describe(self):
        return f"{self.role} '{self.name}'"


def controls_below(node):
    """All that is on show below a node; what goes meanwhile is left out."""
    try:
        node.clear_cache()
        states = node.getState().getStates()
        # Each question is a message to the program: a hidden page is asked no more.
        if pyatspi.STATE_SHOWING not in states:
            return
        control = Control(node, node.getRole(), node.name, states)
        children = list(node)
    except GONE:
        return
    yield control
    for child in children:
        if child is not None:
            yield from controls_below(child)


def click(control):
    action = control.node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    action.doAction(next(i for i, n in enumerate(names) if n in ("Press", "Toggle")))


class Screen:
    """What the program of this name shows; waits until there is one."""

    def __init__(self, name):
        self._application = wait_for(lambda: self._search_program(name), f"program '{name}'")

    @staticmethod
    def _search_program(name):
        for program in pyatspi.Registry.getDesktop(0):
            if program is not None and program.name == name:
                return program
        return None

    def _walk(self):
        # A program itself is never on show, but its windows are.
        self._application.clear_cache()
        for window in self._application:
            if window is not None:
                yield from controls_below(window)

    def controls(self):
        return list(self._walk())

    def texts(self):
        """The names of all that is on show: of a label, its text."""
        return [control.name for control in self.controls()]

    def find(self, role, name):
        """The control of this role and name; waits until it is on show."""

        def search():
            found = (c for c in self._walk() if c.role == role and c.name == name)
            return next(found, None)

        return wait_for(search, f"{role} '{name}'")

    def press(self, role, name):
        """Does what a click would do."""
        click(self.find(role, name))

    def press_last(self, role, name):
        """The same in the uppermost of several dialogs."""
        click([c for c in self.controls() if c.role == role and c.name == name][-1])

    def set_value(self, role, name, value):
        self.find(role, name).node.queryValue().currentValue = value

    def text_of(self, name):
        return self.find(pyatspi.ROLE_TEXT, name).node.queryText().getText(0, -1)

    def type(self, name, text):
        """Replaces what stands in a line edit."""
        self.find(pyatspi.ROLE_TEXT, name).node.queryEditableText().setTextContents(text)

    def wait_for_text(self, text):
        wait_for(lambda: any(c.name == text for c in self._walk()), f"text '{text}'")

    def wait_until_gone(self, text):
        wait_for(lambda: text not in self.texts(), f"the end of text '{text}'")
