#!/usr/bin/env python3
"""Any text survives the forms of output: random labels are imported, written as CSV, Markdown and HTML, and read back
by independent readers.

    round_trip.py        the program in MRSET_PROGRAM, the Markdown reader in CMARK; MRSET_ROUND_TRIP_SEED repeats a run
"""
import csv
import io
import json
import os
import random
import re
import subprocess
import sys
import tempfile
from html.parser import HTMLParser

LABELS = 600
PIECES = (
    list("abcXYZ019 ,.;:!?'\"`*_{}[]()<>&|~$#@^=+-/\\%\t\n\r\x01\x07\x1b\x7f\x85\x9b")
    + ["\u200e", "\u202e", "\u2028", "\u2066", "\u200b", "\ufeff", "\uff1d", "\uff20", "é", "e\u0301", "שלום", "漢字", "🙂"]
    + ["\r\n", "www.", "http://", "https://a.b", "a@b.cd", "<br>", "</td>", "<script>", "&amp;", "&#60;", "--", "- ", "1. "]
    + ["```", "**", "__", "![x](y)", "<!--", "-->", "]]>", "=1+1", "'=1", "''", '""', "\\|", "\\\\|", " | ", "-1", "\\n"]
)
TURNING = [0x061C, 0x200E, 0x200F, *range(0x2028, 0x202F), *range(0x2066, 0x206A)]
NAMED = {"\n": "\\n", "\r": "\\r", "\t": "\\t"}


def run(*arguments, status=0, **options):
    done = subprocess.run(arguments, capture_output=True, **options)
    assert done.returncode == status, (arguments, done.returncode, done.stderr, done.stdout)
    return done.stdout.decode()


def visible(text):
    def one(character):
        code = ord(character)
        if code < 0x20 or 0x7F <= code <= 0x9F:
            return NAMED.get(character, f"\\x{code:02x}")
        return f"\\u{code:04x}" if code in TURNING else character

    return "".join(map(one, text))


def visible_lines(text):
    return [visible(line) for line in re.split("\r\n|\r|\n", text)]


def without_apostrophe(cell):
    """Takes back what keeps a spreadsheet from calculating."""
    return cell[1:] if re.match("'+[=+\\-@\uff1d\uff0b\uff0d\uff20\t\r\n]", cell) else cell


def one_line(text):
    return text.replace("\r", " ").replace("\n", " ")


class Cells(HTMLParser):
    """The texts of the elements of one name, with "\n" for <br>, and the names of all elements."""

    def __init__(self, name):
        super().__init__(convert_charrefs=True)
        self.name, self.texts, self.elements, self.depth = name, [], set(), 0

    def handle_starttag(self, tag, attributes):
        # An e-mail address becomes a link however it is escaped.
        if tag != "a" or not dict(attributes)["href"].startswith("mailto:"):
            self.elements.add((tag, *attributes) if tag == "a" else tag)
        if tag == self.name:
            self.texts.append("")
            self.depth += 1
        elif tag == "br" and self.depth:
            self.texts[-1] += "\n"

    def handle_endtag(self, tag):
        self.depth -= tag == self.name

    def handle_data(self, data):
        if self.depth:
            self.texts[-1] += data


def read_html(html, name):
    cells = Cells(name)
    cells.feed(html)
    cells.close()
    return cells


def compare(what, labels, found, expected):
    assert len(found) == len(labels), (what, len(found), len(labels))
    for label, one, other in zip(labels, found, expected):
        if one != other:
            sys.exit(f"{what} of {label!r}:\n  read     {one!r}\n  expected {other!r}")


def check_csv(mrset, labels):
    text = run(mrset, "variables", "s.mrset", "--format", "csv")
    rows = list(csv.reader(io.StringIO(text, newline=""), strict=True))
    assert rows[0] == ["Name", "Type", "Label", "Value labels"], rows[0]
    compare("CSV label", labels, [without_apostrophe(row[2]) for row in rows[1:]], labels)
    compare("CSV list", labels, [row[3].split("\n") for row in rows[1:]],
            [["1 = " + one_line(label), "2 = two"] for label in labels])


def check_markdown(mrset, labels):
    text = run(mrset, "variables", "s.mrset", "--format", "markdown")
    html = run(os.environ["CMARK"], "--unsafe", "-e", "table", "-e", "autolink", "-e", "strikethrough", "-e", "tagfilter",
               input=text.encode())
    cells = read_html(html, "td")
    assert cells.elements <= {"p", "strong", "table", "thead", "tbody", "tr", "th", "td", "br"}, cells.elements

    def shown(cell):
        return [" ".join(re.split("[ \t\n]+", line)).strip(" ") for line in cell.split("\n")]

    expected = ["\n".join(visible_lines(label)) for label in labels]
    compare("Markdown label", labels, [shown(cell) for cell in cells.texts[2::4]], [shown(text) for text in expected])


def check_html(mrset, labels):
    command = f"MRSET /MCGROUP NAME=$every VARIABLES=v1 TO v{len(labels)} /DISPLAY NAME=ALL"
    html = run(mrset, "run", "s.mrset", "-c", command, "--format", "html")
    table = html[html.index("<table>") : html.index("</table>")]
    cells = read_html(table, "li")
    assert cells.elements <= {"table", "caption", "thead", "tbody", "tr", "th", "td", "ul", "li", "br"}, cells.elements
    compare("HTML label", labels, cells.texts, ["\n".join(visible_lines(label)) for label in labels])


def check_json(mrset, labels):
    variables = json.loads(run(mrset, "variables", "s.mrset", "--format", "json"))["variables"]
    compare("JSON label", labels, [variable["label"] for variable in variables], labels)


def main():
    seed = int(os.environ.get("MRSET_ROUND_TRIP_SEED", random.randrange(1 << 32)))
    print(f"MRSET_ROUND_TRIP_SEED={seed}", flush=True)
    choice = random.Random(seed)
    labels = PIECES + ["x" + "".join(choice.choices(PIECES, k=choice.randint(1, 12))) for _ in range(LABELS // 2)]
    labels += ["".join(choice.choices(PIECES, k=choice.randint(1, 12))) for _ in range(LABELS // 2)]
    names = [f"v{i + 1}" for i in range(len(labels))]
    fields = [
        {"name": name, "type": "integer", "title": label,
         "categories": [{"value": 1, "label": label}, {"value": 2, "label": "two"}]}
        for name, label in zip(names, labels)
    ]
    mrset = os.environ["MRSET_PROGRAM"]
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        with open("s.csv", "w") as file:
            file.write(",".join(names) + "\n" + ",".join("1" for _ in names) + "\n")
        with open("s.json", "w") as file:
            json.dump({"fields": fields}, file)
        run(mrset, "import", "--schema", "s.json", "s.csv", "s.mrset")
        for check in (check_json, check_csv, check_markdown, check_html):
            check(mrset, labels)
        os.chdir("/")
    print(f"{len(labels)} labels came back from CSV, Markdown and HTML.")


main()
