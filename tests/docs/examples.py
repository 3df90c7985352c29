#!/usr/bin/env python3
"""Runs the examples of a document with cram and compares what they print, letter by letter.

examples.py DOCUMENT...   fails, with a diff whose line numbers are the document's, where anything differs
Environment: MRSET_PROGRAM, CRAM3 and CMARK are the programs. With MRSET_UPDATE what is printed is written into the document.
"""

import os
import subprocess
import sys
import tempfile

from blocks import DocumentError, examples_of, lines_of
from transcript import to_document, to_transcript

HERE = os.path.dirname(os.path.abspath(__file__))


def run_cram(folder, transcript):
    inherited = {name: value for name, value in os.environ.items() if name != 'CRAM'}  # which cram takes for options
    environment = dict(inherited, DOCS_SETUP=os.path.join(HERE, 'setup.sh'),
                       EXAMPLES=os.path.join(HERE, '..', '..', 'examples'))
    return subprocess.run([os.environ['CRAM3'], '--shell=/bin/bash', transcript], env=environment, cwd=folder,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, check=False)


def run(path):
    """Returns whether the examples print what the document says."""
    lines = lines_of(path)
    blocks = examples_of(path, lines)
    commands = sum(line.startswith('$ ') for block in blocks for line in block.lines)
    if commands == 0:
        print(f'{path}: no examples, and no block that should be one')
        return True
    transcript = to_transcript(path, lines, blocks)
    with tempfile.TemporaryDirectory() as folder:
        name = os.path.basename(path) + '.t'
        with open(os.path.join(folder, name), 'w', encoding='utf-8') as file:
            file.write('\n'.join(transcript) + '\n')
        result = run_cram(folder, name)
        printed = os.path.join(folder, name + '.err')  # the transcript with what was printed, if that differs
        if 'MRSET_UPDATE' in os.environ and os.path.exists(printed):
            with open(path, 'w', encoding='utf-8') as document:
                document.write('\n'.join(to_document(path, lines, transcript, lines_of(printed))) + '\n')
    # Cram calls a run that ends with status 80 skipped, and that a success.
    if result.returncode != 0 or b'# Ran 1 tests, 0 skipped, 0 failed.' not in result.stdout:
        sys.stdout.write(result.stdout.decode(errors='replace'))
        return False
    print(f'{path}: {commands} examples')
    return True


def main(paths):
    if not paths:
        sys.exit(__doc__)
    try:
        return 0 if all([run(path) for path in paths]) else 1
    except DocumentError as error:
        print(error)
        return 1


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
