#!/usr/bin/python3
"""What the completions, the manual page and the manual say of options, made of the program's declarations.

generated.py OPTION_LIST            fails, with the difference, where what the files say is not what is declared
generated.py --update OPTION_LIST   writes it into them
OPTION_LIST prints the declarations as JSON. In a file, what is generated stands between a line with "generated: NAME"
and one with "end: NAME".
"""

import difflib
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
REGION = re.compile(r'(?P<begin>.* generated: (?P<name>[a-z ]+?)(?: -->)?\n)(?:.*\n)*?'
                    r'(?P<end>.* end: (?P=name)(?: -->)?\n)')


def own(subcommand, common):
    """The options that not all subcommands have."""
    return [option for option in subcommand['options'] if option not in common]


def optional(word, option):
    return f"[{word}]{'...' if option['repeats'] else ''}"


def operands(subcommand, write):
    for operand in subcommand['operands']:
        word = write(operand['names'][0])
        yield word if operand['required'] else optional(word, operand)


def briefly(description):
    """What a shell shows beside an option: the part before the details."""
    return re.split('[;:]', description)[0]


# --- bash


def bash_offer(option):
    kind, *arguments = option['offered'].split() or ['nothing']
    return ' '.join([f'_mrset_{kind}', *(f"'{argument}'" if '*' in argument else argument for argument in arguments)])


def bash_places(scope, options):
    for option in options:
        if option['takesValue']:
            places = ' | '.join(f'{scope}:{name}' for name in option['names'])
            yield f'    {places}) offer=({bash_offer(option)}) ;;'


def bash_operands(subcommand):
    for number, operand in enumerate(subcommand['operands'], 1):
        yield f"    {subcommand['name']}:{'[0-9]*' if operand['repeats'] else number}) offer=({bash_offer(operand)}) ;;"


def bash_options(scope, options):
    return f"    {scope}) echo {' '.join(name for option in options for name in option['names'])} ;;"


def bash(program, common):
    subcommands = program['subcommands']
    options = [bash_options("''", program['options'])]
    places = []
    for subcommand in subcommands:
        options.append(bash_options(subcommand['name'], subcommand['options']))
        places += [*bash_places(subcommand['name'], own(subcommand, common)), *bash_operands(subcommand)]
    return {'subcommands': [f"_mrset_subcommands='{' '.join(subcommand['name'] for subcommand in subcommands)}'"],
            'options': options, 'places': [*places, *bash_places('*', common)]}


# --- zsh


def zsh_quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def zsh_action(option):
    kind, *arguments = option['offered'].split() or ['nothing']
    return {'nothing': ' ', 'words': f"({' '.join(arguments)})", 'sets': '_mrset_sets',
            'files': f"_files -g \"{' '.join(arguments)}\""}[kind]


def zsh_option(option):
    text = re.sub(r'([\[\]])', r'\\\1', briefly(option['description']))
    value = f":{option['type'].lower()}:{zsh_action(option)}" if option['takesValue'] else ''
    names = [name + ('=' if value and name.startswith('--') else '') for name in option['names']]
    if option['names'][-1] in ('--help', '--version'):
        before = '(- *)'
    else:
        before = '*' if option['repeats'] else ''
    if len(names) == 1:
        return zsh_quoted(f'{before}{names[0]}[{text}]{value}')
    return f"{zsh_quoted(before) if before else ''}{{{','.join(names)}}}" + zsh_quoted(f'[{text}]{value}')


def zsh_operands(subcommand):
    for number, operand in enumerate(subcommand['operands'], 1):
        yield zsh_quoted(f"{'*' if operand['repeats'] else number}:{operand['names'][0].lower()}:{zsh_action(operand)}")


def zsh_arguments(indent, arguments):
    return ' \\\n'.join(f'{indent}{argument}' for argument in arguments).split('\n')


def zsh(program, common):
    described = [f"    {zsh_quoted(subcommand['name'] + ':' + subcommand['description'])}"
                 for subcommand in program['subcommands']]
    arguments = []
    for subcommand in program['subcommands']:
        options = [zsh_option(option) for option in subcommand['options']]
        arguments += [f"    {subcommand['name']})", '      _arguments \\',
                      *zsh_arguments('        ', [*options, *zsh_operands(subcommand)]), '      ;;']
    return {'subcommands': described, 'arguments': arguments,
            'options': zsh_arguments('    ', map(zsh_option, program['options']))}


# --- the manual page


def roff(text):
    return re.sub(r'(?<!\w)-', r'\-', text.replace('\\', r'\e'))


def bold(text):
    return r'\fB' + text.replace('-', r'\-') + r'\fR'


def italic(text):
    return rf'\fI{text}\fR'


def roff_option(option, names):
    value = f" {italic(option['type'])}" if option['type'] else ''
    return ', '.join(map(bold, names)) + value


def roff_options(options):
    entries = [['.TP', roff_option(option, option['names']), roff(option['description']) + '.'] for option in options]
    return sum(entries, [])


def manual_page(program, common):
    synopsis = []
    for subcommand in program['subcommands']:
        options = [optional(roff_option(option, option['names'][:1]), option) for option in own(subcommand, common)]
        synopsis += [' '.join([bold('mrset ' + subcommand['name']), *options, *operands(subcommand, italic)]), '.br']
    regions = {'synopsis': synopsis, 'options': roff_options(program['options']),
               'options of every subcommand': roff_options(common)}
    for subcommand in program['subcommands']:
        regions[f"options of {subcommand['name']}"] = roff_options(own(subcommand, common))
    return regions


# --- the manual


def with_value(option, name):
    return f"{name} {option['type']}" if option['type'] else name


def markdown_usage(subcommand, common):
    options = ['[OPTIONS]'] if own(subcommand, common) else []
    arguments = ' '.join([subcommand['name'], *options, *operands(subcommand, str)])
    return f"| `mrset {arguments}` | {subcommand['description']} |"


def markdown_options(subcommands, common):
    """A row for each option; subcommands that declare the same share it."""
    subcommands_of = {}
    for subcommand in subcommands:
        for option in own(subcommand, common):
            names = ', '.join(f'`{with_value(option, name)}`' for name in option['names'])
            subcommands_of.setdefault((names, option['description']), []).append(subcommand['name'])
    return [f"| {names} | {', '.join(sharing)} | {description} |"
            for (names, description), sharing in subcommands_of.items()]


def manual(program, common):
    usages = [markdown_usage(subcommand, common) for subcommand in program['subcommands']]
    options = [*markdown_options(program['subcommands'], common),
               *markdown_options([{'name': 'all', 'options': common}], [])]
    return {'subcommands': ['', '| subcommand | |', '|---|---|', *usages, ''],
            'options': ['', '| option | of | |', '|---|---|---|', *options, '']}


FILES = {'completions/mrset.bash': bash, 'completions/_mrset': zsh, 'docs/mrset.1': manual_page,
         'docs/manual/program.md': manual}


def generate(path, text, regions):
    """The text with its regions as they should be. Those that are empty need not be in it."""
    found = [match['name'] for match in REGION.finditer(text)]
    wanted = [name for name, lines in regions.items() if lines]
    if sorted(found) != sorted(wanted):
        sys.exit(f'{path} has the generated regions {sorted(found)}; it should have {sorted(wanted)}.')
    return REGION.sub(lambda match: match['begin'] + '\n'.join(regions[match['name']]) + '\n' + match['end'], text)


def main(arguments):
    update = arguments[:1] == ['--update']
    program = json.loads(subprocess.run(arguments[-1:], check=True, stdout=subprocess.PIPE).stdout)
    subcommands = program['subcommands']
    common = [option for option in subcommands[0]['options']
              if all(option in subcommand['options'] for subcommand in subcommands)]
    differences = []
    for name, make in FILES.items():
        path = os.path.join(ROOT, name)
        with open(path, encoding='utf-8') as file:
            text = file.read()
        generated = generate(name, text, make(program, common))
        differences += difflib.unified_diff(text.splitlines(True), generated.splitlines(True), name, 'as declared')
        if update:
            with open(path, 'w', encoding='utf-8') as file:
                file.write(generated)
    sys.stdout.writelines(differences)
    return 0 if update or not differences else 1


if __name__ == '__main__':
    if sys.argv[1:] in ([], ['--update']):
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1:]))
