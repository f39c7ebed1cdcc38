"""Writes what a chart looks like for other programs: the same boxes with the same names, and the
same lines, as a graph with fixed places (.dot) and as a diagram (.dia).
export_twins.py CHART.mrv OUT  writes OUT.dot and OUT.dia."""

import sys

PIXELS = 6  # of a model unit
INCH = 96
POINTS = 72 / INCH * PIXELS
CENTIMETRES = PIXELS / 20  # so that the program makes as many pixels of it


def read(path):
    states, routes = {}, []
    with open(path, encoding="utf-8") as chart:
        lines = chart.read().splitlines()
    for at, line in enumerate(lines):
        if line.startswith("BEGIN GenericState"):
            name = line.split()[2]
            states[name] = [int(word) for word in lines[at + 2].split()]
        elif line.startswith("BEGIN Transition"):
            routes.append((lines[at + 2], lines[at + 3].split()))
    return states, routes


def write_dot(states, routes, path):
    with open(path, "w", encoding="utf-8") as out:
        out.write('graph G { node [shape=box style="rounded,filled" fillcolor="#ffffc0"'
                  ' fixedsize=true fontsize=7]\n')
        for name, (left, top, right, bottom) in states.items():
            out.write(f'{name} [label="State {name}" pos="{(left + right) / 2 * POINTS},'
                      f'{-(top + bottom) / 2 * POINTS}!" width={(right - left) * PIXELS / INCH}'
                      f' height={(bottom - top) * PIXELS / INCH}]\n')
        for _, (start, end) in routes:
            out.write(f'{start} -- {end} [label="Event"]\n')
        out.write("}\n")


def attribute(name, value):
    return f'<dia:attribute name="{name}">{value}</dia:attribute>'


def point(x, y):
    return f'<dia:point val="{x * CENTIMETRES},{y * CENTIMETRES}"/>'


def real(value):
    return f'<dia:real val="{value}"/>'


def text(x, y, what):
    string = f"<dia:string>#{what}#</dia:string>"
    return (f'<dia:composite type="text">{attribute("string", string)}'
            f'{attribute("height", real(0.3))}{attribute("pos", point(x, y))}</dia:composite>')


def write_dia(states, routes, path):
    with open(path, "w", encoding="utf-8") as out:
        out.write('<?xml version="1.0" encoding="UTF-8"?>\n<dia:diagram'
                  ' xmlns:dia="http://www.lysator.liu.se/~alla/dia/">'
                  '<dia:layer name="Background" visible="true">\n')
        for name, (left, top, right, bottom) in states.items():
            out.write(f'<dia:object type="Standard - Box" version="0" id="B{name}">'
                      f'{attribute("elem_corner", point(left, top))}'
                      f'{attribute("elem_width", real((right - left) * CENTIMETRES))}'
                      f'{attribute("elem_height", real((bottom - top) * CENTIMETRES))}'
                      f'{attribute("corner_radius", real(0.2))}</dia:object>\n'
                      f'<dia:object type="Standard - Text" version="1" id="T{name}">'
                      f'{attribute("obj_pos", point(left, top + 2))}'
                      f'{attribute("text", text(left + 0.5, top + 2, "State " + name))}'
                      '</dia:object>\n')
        for number, (place, _) in enumerate(routes):
            x1, y1, x2, y2 = [int(word) for word in place.split()]
            out.write(f'<dia:object type="Standard - Line" version="0" id="L{number}">'
                      f'{attribute("conn_endpoints", point(x1, y1) + point(x2, y2))}'
                      '</dia:object>\n')
        out.write("</dia:layer></dia:diagram>\n")


def main():
    chart, out = sys.argv[1:]
    states, routes = read(chart)
    write_dot(states, routes, out + ".dot")
    write_dia(states, routes, out + ".dia")


main()
