"""Examples as a transcript that cram runs, and back. Line N of the transcript is line N of the document."""

import re

from blocks import DocumentError, escaped

INDENT = '  '
PROSE = '| '  # begins a line of the document that is no part of an example
ANNOTATION = re.compile(r' \((re|glob|esc|no-eol)\)$')

# What varies from run to run or from compiler to compiler, and all that may stand in its place. Nothing else is a
# pattern: every other letter is compared.
VARYING = (
    # of a change, with its number, or an import, as `mrset log` shows it
    (re.compile(r'(^ +(?:\d+  )?)\d{4}-\d\d-\d\d \d\d:\d\d:\d\d(?=  )'), r'\d{4}-\d\d-\d\d \d\d:\d\d:\d\d'),
    (re.compile(r'("time":)"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ"'), r'"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ"'),
    # the commit, which a build without git does not know
    (re.compile(r'(^mrset \d+\.\d+\.\d+)( \([0-9a-f]{12}\))?$'), r'( \([0-9a-f]{12}\))?'),
)
# The line number of a failed assertion; compilers write "Record &" or "Record&" in the signature behind it.
ASSERTION = re.compile(r'(^Fatal: mrset: backend/mrset/mrset[a-z]*\.cpp:)\d+(?=: )')
REFERENCE = re.compile(r'(\\ )?(\\[&*])(?=,|\\\))')


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
        if varying.search(line):
            return as_bytes(escaped_but(varying, pattern, line)) + ' (re)'
    if ASSERTION.search(line):
        return REFERENCE.sub(r' ?\2', escaped_but(ASSERTION, r'\d+', line)) + ' (re)'
    return line if line.isascii() else as_bytes(line.replace('\\', '\\\\')) + ' (esc)'


def escaped_but(varying, pattern, line):
    """A pattern for the line in which only what varies, behind its first group, may differ."""
    at = 0
    escaped = ''
    for found in varying.finditer(line):
        escaped += re.escape(line[at:found.end(1)]) + pattern
        at = found.end()
    return escaped + re.escape(line[at:])


def as_bytes(text):
    return ''.join(c if c.isascii() else ''.join(f'\\x{byte:02x}' for byte in c.encode()) for c in text)


def to_document(path, lines, transcript, printed):
    """The document's lines with the output that cram has put into the transcript. A line in which only what varies differs stays."""
    unchanged = {converted: line for converted, line in zip(transcript, lines)}
    document = [lines[0]]
    for line in printed[1:]:
        if line.startswith(PROSE):
            document.append(line[len(PROSE):])
        elif line in unchanged:
            document.append(unchanged[line])
        else:
            printed_line = output(line[len(INDENT):])
            document.append(unchanged.get(INDENT + expected(path, printed_line), escaped(path, printed_line)))
    return document


def output(line):
    if line.endswith(' (esc)'):
        return line[:-len(' (esc)')].encode().decode('unicode_escape').encode('latin-1').decode()
    return line
