"""Part of accessibility.sh: asks the running program for its chart through AT-SPI, drives it by keys
and compares what it says with the file of the chart."""

import re
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

SECONDS = 10
failures = 0
focused = []
roles = []
changed = []


def key(*names):
    subprocess.run(["xdotool", "key", "--delay", "40", *names], check=True)


def until(is_so):
    """Lets events come until something is so; false if it never is."""
    end = time.monotonic() + SECONDS
    while not is_so():
        if time.monotonic() > end:
            return False
        if not GLib.MainContext.default().iteration(False):
            time.sleep(0.01)
    return True


def report(what, good, wanted):
    global failures
    print(f"{what}: {good} of {wanted}")
    failures += good != wanted


def find(start, role, depth=0):
    if start is None or depth > 12:
        return None
    if start.get_role() == role:
        return start
    for index in range(start.get_child_count()):
        found = find(start.get_child_at_index(index), role, depth + 1)
        if found is not None:
            return found
    return None


def place(accessible):
    return Atspi.Component.get_extents(accessible, Atspi.CoordType.SCREEN)


def children(accessible):
    return [accessible.get_child_at_index(i) for i in range(accessible.get_child_count())]


def records(path):
    """The objects of the file: kind, and for a state its rectangle and name."""
    lines = open(path, encoding="utf-8").read().split("\n")
    lines = [line.rstrip("\r") for line in lines]
    zoom = int(lines[1])
    found = []
    for number, line in enumerate(lines):
        match = re.fullmatch(r"BEGIN (\w+) \d+", line)
        if match is None:
            continue
        is_state = match[1] == "GenericState"
        box = tuple(map(int, lines[number + 2].split())) if is_state else None
        found.append((match[1], box, lines[number + 4] if is_state else ""))
    return zoom, found


def on_focus(event):
    if event.detail1 == 1:
        try:
            focused.append(event.source.get_name())
            roles.append(event.source.get_role())
        except GLib.GError:
            pass  # a menu or a dialog that is gone already


def on_children(event):
    changed.append(event.type)


def look(canvas, parts, path):
    zoom, stored = records(path)
    report("objects of the file that are there", len(parts), len(stored))
    told = [p for p in parts if p.get_role_name() and p.get_name() and place(p).width > 0]
    report("objects with a role, a name and a place", len(told), len(stored))
    origin = place(canvas)
    states = [(box, name) for kind, box, name in stored if kind == "GenericState"]
    right = 0
    for (left, top, end, bottom), name in states:
        wanted = (left * zoom, top * zoom, (end - left) * zoom, (bottom - top) * zoom)
        for part in parts:
            at = place(part)
            there = (at.x - origin.x, at.y - origin.y, at.width, at.height)
            if part.get_name().startswith("State " + name) and there == wanted:
                right += 1
                break
    report("states that are where the file has them", right, len(states))


def walk(parts):
    """A Tab for each object tells of that object."""
    good = 0
    for part in parts:
        focused.clear()
        key("Tab")
        good += until(lambda: part.get_name() in focused)
        states = part.get_state_set()
        if not states.contains(Atspi.StateType.SELECTED):
            print("not selected:", part.get_name())
            good -= 1
    report("objects that a Tab comes to, with a focus event, selected", good, len(parts))


def draw(canvas, count):
    """A state by the menu Insert and Return, and a transition to itself."""
    key("Escape", "alt+i", "s")
    time.sleep(0.5)
    changed.clear()
    key("Return")
    report("a state comes by Return", int(until(lambda: canvas.get_child_count() == count + 1)), 1)
    report("its coming is told", int(until(lambda: any("add" in kind for kind in changed))), 1)
    key("ctrl+t")
    time.sleep(1)
    key("Return")
    good = until(lambda: canvas.get_child_count() == count + 2)
    report("a transition comes by the list of targets", int(good), 1)
    key("ctrl+z", "ctrl+z")
    good = until(lambda: canvas.get_child_count() == count)
    report("undo takes both away", int(good), 1)


def go_to(canvas, name):
    """Tab after Tab until the object of that name has the keyboard."""
    key("Escape")
    for _ in range(canvas.get_child_count() + 1):
        focused.clear()
        key("Tab")
        until(lambda: focused)
        if focused and focused[-1].startswith(name):
            return
    sys.exit("no Tab comes to " + name)


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "15", text], check=True)


def insert(letter):
    """A tool of the menu Insert, and Return."""
    key("alt+i", letter)
    time.sleep(0.3)
    key("Return")
    time.sleep(0.3)


def rename(name):
    """The text of what has come last, which is selected."""
    key("Return")
    time.sleep(0.3)
    key("ctrl+a")
    write(name)
    key("ctrl+Return")
    time.sleep(0.3)


def connect(canvas, source, target, event=""):
    """A transition, or a line, to a target in the list, and its event in the editor."""
    go_to(canvas, source)
    key("ctrl+t")
    time.sleep(0.7)
    write(target)
    key("Return")
    time.sleep(0.5)
    if event:
        key("Return")
        time.sleep(0.7)
        key("ctrl+a")
        write(event)
        key("Return")
        time.sleep(0.3)


def coffee_machine(app, path):
    """A chart with all that a chart can hold, drawn, named, connected and saved by keys."""
    key("Escape", "ctrl+n")
    time.sleep(1)
    key(*["F4"] * 3)
    canvases = lambda: find_all(app, Atspi.Role.CANVAS)  # noqa: E731
    canvas = [c for c in canvases() if c.get_child_count() == 0][0]
    insert("s")
    rename("Operating")
    key(*["ctrl+shift+Right"] * 16, *["ctrl+shift+Down"] * 10)
    for inner in ("Grinding", "Brewing"):
        go_to(canvas, "State Operating")
        insert("s")
        rename(inner)
    go_to(canvas, "State Operating")
    insert("i")
    for outer in ("Off", "Idle", "Paying", "Cleaning", "Fault"):
        key("Escape")
        insert("s")
        rename(outer)
    key("Escape")
    insert("i")
    connect(canvas, "Initial state in Operating", "State Gr")
    connect(canvas, "Initial state", "State Off")
    connect(canvas, "State Off", "State Id", "power")
    connect(canvas, "State Idle", "State Pa", "coin")
    connect(canvas, "State Paying", "State Op", "enough")
    connect(canvas, "State Grinding", "State Br", "ground")
    connect(canvas, "State Operating", "State Id", "done")
    connect(canvas, "State Paying", "State Pa", "coin")
    connect(canvas, "State Idle", "State Cl")
    connect(canvas, "State Cleaning", "State Fa")
    go_to(canvas, "State Operating")
    key("shift+F10")
    time.sleep(0.5)
    key("Down", "Down", "Return")
    time.sleep(0.7)
    key("Tab", "space", "Return")
    time.sleep(0.5)
    for text, about in (("beans", "State Gr"), ("money", "State Pa")):
        key("Escape")
        insert("n")
        rename(text)
        connect(canvas, "Note " + text, about)
    key("ctrl+s")
    time.sleep(1)
    key("ctrl+a")
    write(path)
    key("Return")
    time.sleep(1)


def count_drawn(path):
    text = open(path, encoding="utf-8").read().replace("\r", "")
    kinds = [kind for kind, _, _ in records(path)[1]]
    names = [name for kind, _, name in records(path)[1] if kind == "GenericState"]
    ends = re.findall(r"BEGIN (?:Transition|Line) .*\n.*\n.*\n(\d+) (\d+)\n", text)
    report("states drawn and named", len(set(names) - {"State"}), 8)
    report("of them with history", len(re.findall(r"\nOperating\n1 ", text)), 1)
    report("transitions drawn", kinds.count("Transition"), 10)
    report("messages drawn", kinds.count("Mesg"), 6)
    report("notes with lines drawn", min(kinds.count("Note"), kinds.count("Line")), 2)
    report("ends that hold", sum(a != "0" and b != "0" for a, b in ends), 12)
    report("transitions from a state to itself", sum(a == b for a, b in ends), 1)


def find_all(start, role, depth=0):
    if start is None or depth > 12:
        return []
    if start.get_role() == role:
        return [start]
    return [found for child in children(start) for found in find_all(child, role, depth + 1)]


def menus(canvas):
    """The key for the menu opens it at the object, and F6 goes from the chart and back."""
    key("Escape", "Tab", "shift+F10")
    time.sleep(0.5)
    roles.clear()
    key("Down")
    report("the menu opens", int(until(lambda: Atspi.Role.MENU_ITEM in roles)), 1)
    key("Escape")
    has_focus = lambda: canvas.get_state_set().contains(Atspi.StateType.FOCUSED)  # noqa: E731
    time.sleep(0.5)
    key("F6")
    report("F6 leaves the chart", int(until(lambda: not has_focus())), 1)
    key("shift+F6")
    report("Shift+F6 comes back", int(until(has_focus)), 1)


def main(path):
    Atspi.init()
    desktop = Atspi.get_desktop(0)
    if not until(lambda: desktop.get_child_count() > 0):
        sys.exit("the program is not on the bus")
    app = desktop.get_child_at_index(0)
    canvas = find(app, Atspi.Role.CANVAS)
    if canvas is None:
        sys.exit("no chart is there")
    listeners = [Atspi.EventListener.new(on_focus), Atspi.EventListener.new(on_children)]
    listeners[0].register("object:state-changed:focused")
    listeners[1].register("object:children-changed")
    print("chart:", canvas.get_name())
    parts = children(canvas)
    look(canvas, parts, path)
    walk(parts)
    draw(canvas, len(parts))
    menus(canvas)
    drawn = path.rsplit("/", 1)[0] + "/Coffee.mrv"
    coffee_machine(app, drawn)
    count_drawn(drawn)
    sys.exit(1 if failures else 0)


main(sys.argv[1])
