"""The blocks of code in a document, and which of them are examples that are run.

Markdown: every block is fenced and says what it is.
  ```console   examples: run, in the order of the document
  ```sh        commands that set up, build or test the project: not run, and never the program itself
  ```json, ```cmake, ```cpp, ```syntax   forms and grammars: not run, and without command lines
Man pages: every .EX block is an example that is run.
"""

import os
import re
import subprocess
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass

FORMS = ('json', 'cmake', 'cpp', 'syntax')
# What a line of a ```sh block begins with; comments stand behind it.
SET_UP = re.compile(r'(scripts/(demo|test|bench|coverage|mutate)|git|cd|cp|cmake|cpack|ctest|export)( |$)')
PROGRAM = re.compile(r'(^|[/\s;|&])mrset\s')
COMMAND = re.compile(r'\s*MRSET\s+/?\w', re.IGNORECASE)


class DocumentError(Exception):
    """A block that breaks the rules; the message names document and line."""


@dataclass
class Block:
    first: int  # number of its first line of content, from 1
    lines: list  # its content, as in the document


def lines_of(path):
    """The lines of a file, whose last line ends."""
    with open(path, encoding='utf-8') as file:
        return file.read().removesuffix('\n').split('\n')


def examples_of(path, lines):
    """The blocks that are run. Raises DocumentError where a block breaks the rules."""
    blocks = roff_blocks(path, lines) if path.endswith('.1') else markdown_blocks(path, lines)
    for block in blocks:
        if block.first == 1 or not block.lines or not block.lines[0].startswith('$ '):
            raise DocumentError(f'{path}:{block.first}: an example must begin with "$ " and a command')
    return blocks


def markdown_blocks(path, lines):
    xml = subprocess.run([os.environ['CMARK'], '--to', 'xml', '--sourcepos', path], check=True, stdout=subprocess.PIPE)
    examples = []
    for node in ElementTree.fromstring(xml.stdout).iter('{http://commonmark.org/xml/1.0}code_block'):
        begin, end = (place.split(':') for place in node.get('sourcepos').split('-'))
        first, last = int(begin[0]) + 1, int(end[0]) - 1
        kind = node.get('info')
        if kind == 'console':
            if begin[1] != '1':
                raise DocumentError(f'{path}:{first - 1}: an example must not be indented')
            examples.append(Block(first, lines[first - 1:last]))
        else:
            check_block_that_is_not_run(f'{path}:{first - 1}', kind, (node.text or '').split('\n'))
    return examples


def check_block_that_is_not_run(place, kind, lines):
    if kind is None:
        raise DocumentError(f'{place}: a block must be fenced and say what it is')
    if kind not in (*FORMS, 'sh'):
        raise DocumentError(f'{place}: a block of {kind} is neither run nor among the forms that need not be')
    for line in lines:
        if line.startswith('$ ') or PROGRAM.search(line) or COMMAND.match(line):
            raise DocumentError(f'{place}: this command is not run, since its block is no ```console: {line}')
        if kind == 'sh' and line and not SET_UP.match(line):
            raise DocumentError(f'{place}: a ```sh block only sets up, builds or tests: {line}')


def roff_blocks(path, lines):
    examples = []
    block = None
    for number, line in enumerate(lines, 1):
        if line == '.EX':
            block = Block(number + 1, [])
        elif line == '.EE' and block:
            examples.append(block)
            block = None
        elif block:
            block.lines.append(without_escapes(f'{path}:{number}', line))
        elif line.startswith('$ '):
            raise DocumentError(f'{path}:{number}: a command outside of .EX and .EE is not run')
    if block:
        raise DocumentError(f'{path}:{block.first - 1}: .EX without .EE')
    return examples


ROFF_ESCAPES = {'\\-': '-', '\\e': '\\', '\\&': '', '\\(aq': "'", '\\(dq': '"', '\\(ha': '^', '\\(ti': '~',
                '\\(rs': '\\', '\\fB': '', '\\fI': '', '\\fR': '', '\\fP': ''}


def escaped(path, line):
    """A line of output as it stands in the document."""
    if not path.endswith('.1'):
        return line
    line = line.replace('\\', '\\e').replace('-', '\\-').replace("'", '\\(aq')
    return '\\&' + line if line.startswith('.') else line


def without_escapes(place, line):
    def plain(match):
        if match.group() not in ROFF_ESCAPES:
            raise DocumentError(f'{place}: an escape that the test does not know: {match.group()}')
        return ROFF_ESCAPES[match.group()]

    if line.startswith(('.', "'")):
        raise DocumentError(f'{place}: a request within an example')
    return re.sub(r'\\(\(..|f.|.)', plain, line)
