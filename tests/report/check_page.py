#!/usr/bin/env python3
"""Checks a report: check_page.py REPORT.html. Prints what it has, or a line for each defect, and exits with 1.

Every element is closed, ids are unique, references have a target, nothing is loaded from elsewhere, every figure is
well-formed XML with a name, and the tables behind the links are prefixes and columns of the tables beside the page.
"""
import csv
import html.parser
import io
import pathlib
import re
import sys
import urllib.parse
import xml.etree.ElementTree

VOID = {"meta", "br", "link", "img", "hr"}


class Page(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.open, self.defects, self.ids, self.references, self.downloads = [], [], [], [], []

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag not in VOID:
            self.open.append(tag)
        if "id" in values:
            self.ids.append(values["id"])
        for key in ("href", "xlink:href", "src"):
            target = values.get(key)
            if target is None:
                continue
            if target.startswith("#"):
                self.references.append(target[1:])
            elif target.startswith("data:text/csv;charset=utf-8,"):
                self.downloads.append((values["download"], target.split(",", 1)[1]))
            else:
                self.defects.append(f"loads {target}")
        if tag == "script":
            self.defects.append("has a script")

    def handle_startendtag(self, tag, attributes):
        self.handle_starttag(tag, attributes)
        if tag not in VOID:
            self.open.pop()

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.defects.append(f"</{tag}> at line {self.getpos()[0]} closes nothing")


def columns(text):
    rows = list(csv.reader(io.StringIO(text)))
    return {name: [row[k] for row in rows[1:]] for k, name in enumerate(rows[0])}


report = pathlib.Path(sys.argv[1])
text = report.read_text(encoding="utf-8")
page = Page()
page.feed(text)
page.close()
defects = page.defects
defects += [f"<{tag}> is not closed" for tag in page.open]
defects += [f"id {name} is there twice" for name in {i for i in page.ids if page.ids.count(i) > 1}]
defects += [f"#{name} leads nowhere" for name in page.references if name not in page.ids]
figures = re.findall(r"<svg.*?</svg>", text, re.DOTALL)
for svg in figures:
    root = xml.etree.ElementTree.fromstring(svg)
    if not root.get("aria-label"):
        defects.append("a figure has no name")
    colours = set(re.findall(r"rgb\([^)]*\)|black", svg)) - set(re.findall(r">[^<]*<", svg))
    if colours:
        defects.append(f"a figure has colours that are not the page's: {colours}")
tables = {name: columns((report.parent / name).read_text(encoding="utf-8"))
          for name in ("points.csv", "series.csv") if (report.parent / name).exists()}
for name, data in page.downloads:
    whole = tables["series.csv" if name.startswith("series-") else "points.csv"]
    for column, values in columns(urllib.parse.unquote(data)).items():
        if whole.get(column) != values:
            defects.append(f"{name}: column {column} is not that of the table")
for defect in defects:
    print(defect)
if not defects:
    print(f"{len(figures)} figures, {len(page.downloads)} tables")
sys.exit(1 if defects else 0)
