"""What a screen reader reads of an application through AT-SPI, as a table of its controls."""

import time

import pyatspi

DEADLINE = 60.0
# An application on a busy machine may answer a call late; in milliseconds, for any application and for one that starts.
pyatspi.setTimeout(20_000, 60_000)
SILENT = {pyatspi.ROLE_FILLER, pyatspi.ROLE_PANEL, pyatspi.ROLE_SCROLL_PANE, pyatspi.ROLE_VIEWPORT}


def wait_for(what, find):
    """The result of find as soon as it is true; an error after the deadline."""
    end = time.monotonic() + DEADLINE
    while True:
        found = find()
        if found:
            return found
        if time.monotonic() > end:
            raise TimeoutError(f"no {what} within {DEADLINE:.0f} seconds")
        time.sleep(0.05)


def listen_to_everything():
    pyatspi.Registry.registerEventListener(lambda event: None, "object")


def application(name):
    desktop = pyatspi.Registry.getDesktop(0)
    return next((app for app in desktop if app is not None and app.name == name), None)


def walk(accessible):
    """The accessible and its descendants, in the order in which a screen reader reads them."""
    yield accessible
    for child in accessible:
        if child is not None:
            yield from walk(child)


def shows(accessible):
    return accessible.getState().contains(pyatspi.STATE_SHOWING)


def is_enabled(accessible):
    return accessible.getState().contains(pyatspi.STATE_ENABLED)


def find(root, role, name):
    """The visible accessible with a role and a name that begins with name, or None."""
    return next((each for each in walk(root)
                 if each.getRoleName() == role and each.name.startswith(name) and shows(each)), None)


def act(accessible, action):
    """Performs one of the actions of the accessible."""
    actions = accessible.queryAction()
    names = [actions.getName(index) for index in range(actions.nActions)]
    if not actions.doAction(names.index(action)):
        raise RuntimeError(f"{accessible.name} does not take {action}")


def number(value):
    return f"{value:.12g}"


def value_of(accessible):
    """What is read after the name: a number with its range, a text, a check mark, or the description of an image."""
    role = accessible.getRole()
    if role in (pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON):
        value = accessible.queryValue()
        return (f"{number(value.currentValue)}, from {number(value.minimumValue)} to {number(value.maximumValue)} "
                f"by {number(value.minimumIncrement)}")
    if role == pyatspi.ROLE_CHECK_BOX:
        return "checked" if accessible.getState().contains(pyatspi.STATE_CHECKED) else "not checked"
    if role == pyatspi.ROLE_TEXT:
        text = accessible.queryText()
        return text.getText(0, text.characterCount)
    if role == pyatspi.ROLE_CHART or accessible.name == "Lattice":
        return accessible.description
    return ""


def table(root):
    """Rows of role, name, value and "unavailable" or nothing, of everything visible except nameless containers."""
    rows = []
    for each in walk(root):
        if not shows(each) or (each.getRole() in SILENT and not each.name):
            continue
        rows.append((each.getRoleName(), each.name, value_of(each), "" if is_enabled(each) else "unavailable"))
    return rows
