"""Examples as a transcript that cram runs, and back. Line N of the transcript is line N of the document."""

import re

from blocks import DocumentError

INDENT = '  '
PROSE = '| '  # begins a line of the document that is no part of an example
ANNOTATION = re.compile(r' \((re|glob|esc|no-eol)\)$')

# What varies from run to run or from compiler to compiler, and all that may stand in its place. Nothing else is a
# pattern: every other letter is compared.
VARYING = (
    # the time of a change, as `mrset log` shows it
    (re.compile(r'^( +\d+  )\d{4}-\d\d-\d\d \d\d:\d\d:\d\d  '), r'\d{4}-\d\d-\d\d \d\d:\d\d:\d\d  '),
    (re.compile(r'("time":)"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ"'), r'"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ"'),
    # the line of a failed assertion
    (re.compile(r'^(Fatal: mrset: backend/mrset/mrset[a-z]*\.cpp:)\d+(?=: )'), r'\d+'),
)


def to_transcript(path, lines, blocks):
    """The lines of the transcript. The document's first line makes way for the set-up."""
    transcript = [PROSE + line for line in lines]
    transcript[0] = INDENT + '$ . "$DOCS_SETUP"'
    for block in blocks:
        for number, line in enumerate(block.lines, block.first):
            line_of_command = '> ' if line == '>' else line
            transcript[number - 1] = INDENT + (line_of_command if line_of_command[:2] in ('$ ', '> ')
                                               else expected(f'{path}:{number}', line))
    return transcript


def expected(place, line):
    """A line of output as cram expects it."""
    if ANNOTATION.search(line):
        raise DocumentError(f'{place}: output must not end as an annotation of the transcript does')
    for varying, pattern in VARYING:
        found = varying.search(line)
        if found:
            begin = line[:found.end(1)]
            end = re.sub(r'[ ]?([&*])(?=[,)])', r'\1', line[found.end():])
            return as_bytes(re.escape(begin) + pattern + with_either_spelling(re.escape(end))) + ' (re)'
    return line if line.isascii() else as_bytes(line.replace('\\', '\\\\')) + ' (esc)'


def with_either_spelling(pattern):
    """Compilers write "Record &record" or "Record&" in the signature of a failed assertion."""
    return re.sub(r'\\([&*])(?=,|\\\))', r' ?\\\1', pattern)


def as_bytes(text):
    return ''.join(c if c.isascii() else ''.join(f'\\x{byte:02x}' for byte in c.encode()) for c in text)


def to_document(lines, transcript, patched):
    """The document's lines with the output that cram has put into the transcript."""
    unchanged = {converted: line for converted, line in zip(transcript, lines)}
    document = [lines[0]]
    for line in patched[1:]:
        if line.startswith(PROSE):
            document.append(line[len(PROSE):])
        elif line in unchanged:
            document.append(unchanged[line])
        else:
            document.append(output(line[len(INDENT):]))
    return document


def output(line):
    if line.endswith(' (esc)'):
        return line[:-len(' (esc)')].encode().decode('unicode_escape').encode('latin-1').decode()
    return line
