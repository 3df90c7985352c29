#!/usr/bin/python3
"""Shows a workbook as text: of each sheet its name, what is frozen, and its cells, numbers with their format.

    read_workbook.py FILE
"""
import sys
import xml.etree.ElementTree as xml
import zipfile

MAIN = '{http://schemas.openxmlformats.org/spreadsheetml/2006/main}'
BUILT_IN = {'0': 'General', '1': '0', '2': '0.00', '9': '0%', '10': '0.00%'}


def formats_of(book):
    styles = xml.fromstring(book.read('xl/styles.xml'))
    own = {one.get('numFmtId'): one.get('formatCode') for one in styles.iter(f'{MAIN}numFmt')}
    used = [one.get('numFmtId') for one in styles.find(f'{MAIN}cellXfs')]
    return [own.get(one) or BUILT_IN[one] for one in used]


def texts_of(book):
    if 'xl/sharedStrings.xml' not in book.namelist():
        return []
    table = xml.fromstring(book.read('xl/sharedStrings.xml'))
    return [''.join(part.text or '' for part in one.iter(f'{MAIN}t')) for one in table.iter(f'{MAIN}si')]


def shown(cell, texts, formats):
    value = cell.findtext(f'{MAIN}v')
    if cell.find(f'{MAIN}f') is not None:
        return f'{cell.get("r")} formula'
    if value is None:
        return None
    if cell.get('t') == 's':
        return f'{cell.get("r")} {texts[int(value)]!r}'
    return f'{cell.get("r")} {value} as {formats[int(cell.get("s", "0"))]}'


def main():
    with zipfile.ZipFile(sys.argv[1]) as book:
        damaged = book.testzip()
        assert damaged is None, damaged
        for name in book.namelist():
            xml.fromstring(book.read(name))
        texts, formats = texts_of(book), formats_of(book)
        sheets = xml.fromstring(book.read('xl/workbook.xml')).find(f'{MAIN}sheets')
        for number, sheet in enumerate(sheets, 1):
            content = xml.fromstring(book.read(f'xl/worksheets/sheet{number}.xml'))
            pane = content.find(f'.//{MAIN}pane')
            frozen = '' if pane is None else f', frozen at {pane.get("topLeftCell")}'
            print(f'{sheet.get("name")!r}{frozen}')
            for row in content.iter(f'{MAIN}row'):
                cells = [shown(cell, texts, formats) for cell in row]
                print('  ' + ', '.join(cell for cell in cells if cell))
            merged = [one.get('ref') for one in content.iter(f'{MAIN}mergeCell')]
            if merged:
                print('  merged: ' + ' '.join(merged))


main()
