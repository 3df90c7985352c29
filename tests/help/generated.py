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
REGION = re.compile(r'(?P<begin>.* generated: (?P<name>[a-z]+)(?: -->)?\n)(?:.*\n)*?'
                    r'(?P<end>.* end: (?P=name)(?: -->)?\n)')


class Option:
    """An option, or an operand."""

    def __init__(self, declared):
        self.names = tuple(declared['names'].split(','))
        self.type, _, offered = declared['type'].partition(':')
        self.kind, *self.offered = offered.split() or ['nothing']
        self.description = declared['description']
        self.takes_value, self.repeats = declared['takesValue'], declared['repeats']
        self.required, self.is_operand = declared['required'], declared['isOperand']

    def briefly(self):
        """What a shell shows beside an option: the part before the details."""
        return re.split('[;:]', self.description)[0]

    def in_usage(self, text):
        return text if self.required else f"[{text}]{'...' if self.repeats else ''}"


class Command:
    """A subcommand, or the program itself."""

    def __init__(self, declared):
        self.name, self.description = declared['name'], declared['description']
        declarations = [Option(option) for option in declared['options']]
        self.options = [option for option in declarations if not option.is_operand]
        self.operands = [option for option in declarations if option.is_operand]
        self.subcommands = [Command(subcommand) for subcommand in declared.get('subcommands', [])]
        if self.subcommands:
            self.topics = [command.name for command in self.subcommands] + declared['topics']
            names = [{option.names for option in command.options} for command in self.subcommands]
            self.names_in_all = set.intersection(*names)


def bash(program):
    def place(scope, names, option):
        offered = [f"'{word}'" if '*' in word else word for word in option.offered]
        patterns = ' | '.join(f'{scope}:{name}' for name in names)
        return f"    {patterns}) offer=({' '.join(['_mrset_' + option.kind, *offered])}) ;;"

    places, names = [], {"''": program.options}
    for command in program.subcommands:
        names[command.name] = command.options
        places += [place(command.name, option.names, option) for option in command.options if option.takes_value]
        places += [place(command.name, ['[0-9]*' if operand.repeats else number], operand)
                   for number, operand in enumerate(command.operands, 1)]
    return {'subcommands': [f"_mrset_subcommands='{' '.join(command.name for command in program.subcommands)} help'",
                            f"_mrset_topics='{' '.join(program.topics)}'"],
            'options': [f"    {scope}) echo {' '.join(name for option in options for name in option.names)} ;;"
                        for scope, options in names.items()],
            'places': places}


def zsh(program):
    def quoted(text):
        return "'" + text.replace("'", "'\\''") + "'"

    def action(option):
        words = ' '.join(option.offered)
        return {'nothing': ' ', 'words': f'({words})', 'sets': '_mrset_sets',
                'files': f'_files -g "{words}"'}[option.kind]

    def argument(option):
        ends = option.names[-1] in ('--help', '--version')
        before = quoted('(- *)' if ends else '*') if ends or option.repeats else ''
        names = [name + '=' * (option.takes_value and name.startswith('--')) for name in option.names]
        value = f':{option.type.lower()}:{action(option)}' if option.takes_value else ''
        alternatives = f"{{{','.join(names)}}}" if len(names) > 1 else names[0]
        return before + alternatives + quoted('[' + re.sub(r'([\[\]])', r'\\\1', option.briefly()) + ']' + value)

    def arguments(command):
        operands = [quoted(f"{'*' if operand.repeats else number}:{operand.names[0].lower()}:{action(operand)}")
                    for number, operand in enumerate(command.operands, 1)]
        return ' \\\n        '.join(['_arguments', *map(argument, command.options), *operands])

    commands = program.subcommands
    help_on = ("    'help:Show the help on a subcommand or on the command language'",
               f"    help)\n      _arguments '1:topic:({' '.join(program.topics)})'\n      ;;")
    return {'subcommands': [*(f"    {quoted(f'{command.name}:{command.description}')}" for command in commands), help_on[0]],
            'arguments': [*(f'    {command.name})\n      {arguments(command)}\n      ;;' for command in commands), help_on[1]],
            'options': [f'    {argument(option)}' for option in program.options]}


def manual_page(program):
    def roff(text):
        return re.sub(r'(?<!\w)-', r'\-', text.replace('\\', r'\e')) + '.'

    def term(option, names):
        bold = ', '.join(rf'\fB{name}\fR' for name in names).replace('-', r'\-')
        return bold + (rf' \fI{option.type}\fR' if option.type else '')

    def entries(options):
        return [f'.TP\n{term(option, option.names)}\n{roff(option.description)}' for option in options]

    def own(command):
        return [option for option in command.options if option.names not in program.names_in_all]

    def usage(command):
        options = [option.in_usage(term(option, option.names[:1])) for option in own(command)]
        operands = [operand.in_usage(rf'\fI{operand.names[0]}\fR') for operand in command.operands]
        return ' '.join([rf'\fBmrset {command.name}\fR', *options, *operands])

    subcommands = []
    for command in program.subcommands:
        operands = [f'.TP\n.I {operand.names[0]}\n{roff(operand.description)}' for operand in command.operands]
        subcommands += [f'.SS mrset {command.name}', roff(command.description), *operands, *entries(own(command))]
    common = [option for option in program.subcommands[0].options if option.names in program.names_in_all]
    return {'synopsis': [f'{usage(command)}\n.br' for command in program.subcommands], 'subcommands': subcommands,
            'common': entries(common), 'options': entries(program.options)}


def manual(program):
    def row(option):
        value = f' {option.type}' if option.type else ''
        return ', '.join(f'`{name}{value}`' for name in option.names), option.description

    usages, commands_of = [], {}
    for command in program.subcommands:
        operands = [operand.in_usage(operand.names[0]) for operand in command.operands]
        usages.append(f"| `mrset {' '.join([command.name, '[OPTIONS]', *operands])}` | {command.description} |")
        for option in command.options:
            commands_of.setdefault(row(option), []).append(command.name)
    options = [f"| {names} | {'all' if len(commands) == len(usages) else ', '.join(commands)} | {description} |"
               for (names, description), commands in commands_of.items()]
    return {'subcommands': ['', '| subcommand | |', '|---|---|', *usages, ''],
            'options': ['', '| option | of | |', '|---|---|---|', *options, '']}


FILES = {'completions/mrset.bash': bash, 'completions/_mrset': zsh, 'docs/mrset.1': manual_page,
         'docs/manual/program.md': manual}


def main(arguments):
    program = Command(json.loads(subprocess.run(arguments[-1:], check=True, stdout=subprocess.PIPE).stdout))
    differences = []
    for name, make in FILES.items():
        path, regions = os.path.join(ROOT, name), make(program)
        with open(path, encoding='utf-8') as file:
            text = file.read()
        if sorted(region['name'] for region in REGION.finditer(text)) != sorted(regions):
            sys.exit(f'{name} must have these generated regions, once each: {", ".join(regions)}')
        made = REGION.sub(lambda found: found['begin'] + '\n'.join([*regions[found['name']], found['end']]), text)
        differences += difflib.unified_diff(text.splitlines(True), made.splitlines(True), name, 'as declared')
        if arguments[0] == '--update':
            with open(path, 'w', encoding='utf-8') as file:
                file.write(made)
    sys.stdout.writelines(differences)
    return 1 if differences and arguments[0] != '--update' else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
