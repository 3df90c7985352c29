#!/usr/bin/env python3
"""Changes the module, one small change at a time, and sees whether the tests notice.

Each mutant is compiled into a library of its own, on which the test programs, built once, then run. A mutant is killed
when a test fails, crashes or does not come to an end. Those that survive are to be killed by a new test, or explained
in equivalent.txt. Exits with 1 on a survivor that is not explained, and on an explanation that is not needed.
"""
import argparse
import collections
import concurrent.futures
import os
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import mutants

ROOT = Path(__file__).resolve().parents[2]
EQUIVALENT = Path(__file__).resolve().parent / "equivalent.txt"
SOURCES = ROOT / "backend" / "mrset"

MEMORY_BYTES = 2 << 30
SHORTEST_TIMEOUT = 20.0
TIMEOUT_FACTOR = 10.0

# What a mutant must pass, the quickest first. The last compares the texts of its sources with those that the tests
# know, and so sees a message that is never issued and an assertion that cannot fail. The other tests of trace_tests
# sweep faults, which takes minutes, or are not about the module.
STAGES = [
    ("unit tests", "module_tests", "-*DeathTest*"),
    ("assertion reports", "trace_tests", "CallsBeforeAnAssertion.*:AssertionReport.*"),
    ("traces", "trace_tests", "Of/CallTrace.*"),
    ("death tests", "module_tests", "*DeathTest*"),
    ("list of texts", "trace_tests", "Messages.*:Assertions.*"),
]
PROGRAMS = sorted({program for _, program, _ in STAGES})

COMPILER = ["g++", "-std=c++17", "-O0", "-DNDEBUG", "-fPIC", "-w"]


def run(command, **options):
    return subprocess.run(command, check=True, **options)


class TestPrograms:
    """The test programs, linked without the module's objects: those come from a library at run time."""

    def __init__(self, build):
        self.build = build

    def make(self, jobs):
        run(["cmake", "-S", ROOT, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
             "-DCMAKE_CXX_FLAGS_DEBUG=-O1", "-DMRSET_BUILD_TESTS=ON", "-DMRSET_BUILD_STANDALONE=OFF",
             *([] if shutil.which("ccache") is None else ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"])],
            stdout=subprocess.DEVNULL)
        run(["cmake", "--build", self.build, "--parallel", str(jobs), "--target", *PROGRAMS])

    def link(self, library):
        for name in PROGRAMS:
            run(self._link_command(name, library), cwd=self.build)

    def _link_command(self, name, library):
        commands = subprocess.run(["ninja", "-C", self.build, "-t", "commands", name], check=True, capture_output=True,
                                  text=True).stdout
        link = next(part for part in reversed(re.split(r" && |\n", commands)) if f" -o bin/{name} " in f"{part} ")
        words = [word for word in shlex.split(link) if "mrset_module_objects.dir" not in word]
        # The library before the host's archive, whose members it needs.
        at = words.index(f"bin/{name}")
        return words[:at] + [self.program(name), library] + words[at + 1:] + ["-rdynamic"]

    def program(self, name):
        return f"mutation_{name}"

    def verdict(self, folder, sources, timeout):
        """Which tests noticed, or None, with the library of the folder and the sources of which it was made."""
        return next((tests for tests, program, test_filter in STAGES
                     if not self._passes(program, test_filter, folder, sources, timeout)), None)

    def _passes(self, name, test_filter, folder, sources, timeout):
        environment = dict(os.environ, LD_LIBRARY_PATH=str(folder), MRSET_SOURCES=str(sources), GTEST_BRIEF="1",
                           GTEST_FAIL_FAST="1")
        process = subprocess.Popen([self.build / self.program(name), f"--gtest_filter={test_filter}"],
                                   env=environment, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=limit_resources)
        try:
            return process.wait(timeout) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            # Death tests have children, which an endless loop would outlive.
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            process.wait()


def limit_resources():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_BYTES, MEMORY_BYTES))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Module:
    """The module as a library, from its sources or with one of them changed."""

    LIBRARY = "libmutant.so"

    def __init__(self, build):
        self.objects = build / "mutation_objects"
        self.sources = sorted(path.relative_to(ROOT) for path in SOURCES.glob("*.cpp"))

    def make(self):
        """The objects of all sources, the unchanged library, and the headers of others, compiled once."""
        self.objects.mkdir(exist_ok=True)
        headers = sorted({header for path in SOURCES.iterdir() if path.suffix in (".cpp", ".h")
                          for header in re.findall(r"#include (<(?!cassert)[a-z]+>)", path.read_text())})
        standard = self.objects / "standard.h"
        headers += [f'"host/{path.name}"' for path in sorted((ROOT / "host").glob("*.h"))]
        standard.write_text("".join(f"#include {header}\n" for header in headers))
        run([*COMPILER, f"-I{ROOT}", "-x", "c++-header", standard, "-o", self.objects / "standard.h.gch"])
        for source in self.sources:
            if not self._compile(source, ROOT, self.objects):
                sys.exit(f"{source} does not compile.")
        self.link(self.objects, [])

    def library(self):
        return self.objects / self.LIBRARY

    def make_mutant(self, mutant, folder):
        """Makes the mutant's library in the folder; False when it does not compile or link."""
        changed = folder / mutant.file
        changed.parent.mkdir(parents=True)
        changed.write_text(mutant.source)
        # Beside it stand the others, the tests that look for texts in them, and the manual that must name these.
        for source in SOURCES.iterdir():
            if source.name != changed.name:
                (changed.parent / source.name).symlink_to(source)
        for other in ("tests", "docs"):
            (folder / other).symlink_to(ROOT / other)
        sources = self.sources if changed.suffix == ".h" else [Path(mutant.file)]
        return all(self._compile(source, folder, folder) for source in sources) and self.link(folder, sources)

    def _compile(self, source, where, folder):
        # Run where the source's path is relative, as assertion reports show it.
        return subprocess.run([*COMPILER, "-include", self.objects / "standard.h", f"-I{where}", f"-I{ROOT}", "-c",
                               source, "-o", folder / f"{source.stem}.o"],
                              cwd=where, capture_output=True).returncode == 0

    def link(self, folder, changed):
        objects = [(folder if source in changed else self.objects) / f"{source.stem}.o" for source in self.sources]
        # Symbolic: the tests' copies of inline functions must not take the place of the mutant's.
        command = ["g++", "-shared", f"-Wl,-soname,{self.LIBRARY}", "-Wl,-Bsymbolic", *objects]
        return subprocess.run([*command, "-o", folder / self.LIBRARY], capture_output=True).returncode == 0


def all_mutants():
    found = []
    for path in sorted(SOURCES.iterdir()):
        if path.suffix in (".cpp", ".h"):
            found += mutants.mutants_of(str(path.relative_to(ROOT)), path.read_text())
    return found


def explanations():
    """Blocks of "key: value" lines between empty lines: the survivors that are explained."""
    text = EQUIVALENT.read_text() if EQUIVALENT.exists() else ""
    blocks = [[line for line in block.splitlines() if line.strip() and not line.startswith("#")]
              for block in re.split(r"\n\s*\n", text)]
    return [dict(line.split(": ", 1) for line in lines) for lines in blocks if lines]


def fits(entry, mutant):
    known = {"file": mutant.file, "in": mutant.function, "ahead": mutant.ahead, "kind": mutant.kind,
             "line": mutant.before, "gives": mutant.after}
    return all(known[key] == value for key, value in entry.items() if key != "why")


def explained_mutants(mutants_of_all):
    """The mutants that are explained; ends where an explanation is not one mutant's alone."""
    explained = set()
    for entry in explanations():
        fitting = [mutant for mutant in mutants_of_all if fits(entry, mutant)]
        if len(fitting) != 1:
            sys.exit(f"{EQUIVALENT.name} explains {len(fitting)} mutants at once: {entry}")
        explained.add(fitting[0])
    return explained


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "mutation", help="the build folder")
    parser.add_argument("--sample", type=int, metavar="N", help="only N mutants, chosen at random")
    parser.add_argument("--seed", type=int, default=1, help="of that choice")
    parser.add_argument("--jobs", type=int, default=1, help="mutants at a time")
    parser.add_argument("--file", help="only mutants of sources whose path contains this")
    parser.add_argument("--line", type=int, help="only mutants of this line")
    parser.add_argument("--kind", help="only mutants of this kind")
    parser.add_argument("--list", action="store_true", help="print the mutants and do nothing")
    return parser.parse_args()


def chosen_mutants(options, everything):
    chosen = [mutant for mutant in everything
              if (options.file is None or options.file in mutant.file)
              and (options.line is None or options.line == mutant.line)
              and (options.kind is None or options.kind == mutant.kind)]
    if options.sample is not None and options.sample < len(chosen):
        chosen = random.Random(options.seed).sample(chosen, options.sample)
    return chosen


def describe(mutant):
    return f"{mutant.file}:{mutant.line}: {mutant.kind}\n  line: {mutant.before}\n  gives: {mutant.after}"


class Campaign:
    def __init__(self, programs, module, timeout):
        self.programs = programs
        self.module = module
        self.timeout = timeout

    def outcome(self, mutant):
        """"not compiled", "survived", or which tests noticed."""
        with tempfile.TemporaryDirectory(prefix="mutant-") as name:
            folder = Path(name)
            if not self.module.make_mutant(mutant, folder):
                return "not compiled"
            return self.programs.verdict(folder, folder, self.timeout) or "survived"


def main():
    options = arguments()
    everything = all_mutants()
    known = explained_mutants(everything)
    chosen = chosen_mutants(options, everything)
    if options.list:
        for mutant in chosen:
            print(describe(mutant))
        return 0

    options.build = options.build.resolve()
    programs = TestPrograms(options.build)
    programs.make(options.jobs)
    module = Module(options.build)
    module.make()
    programs.link(module.library())
    started = time.monotonic()
    noticed = programs.verdict(module.objects, ROOT, 600.0)
    if noticed is not None:
        sys.exit(f"The {noticed} fail on the unchanged module.")
    unchanged = time.monotonic() - started
    print(f"{len(chosen)} mutants; the tests take {unchanged:.1f} s on the unchanged module.", flush=True)

    campaign = Campaign(programs, module, max(SHORTEST_TIMEOUT, TIMEOUT_FACTOR * unchanged))
    counts = collections.Counter()
    survivors = set()
    started = time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for done, (mutant, outcome) in enumerate(zip(chosen, pool.map(campaign.outcome, chosen)), 1):
            counts[outcome] += 1
            if outcome == "survived":
                survivors.add(mutant)
                if mutant not in known:
                    print(f"SURVIVED {describe(mutant)}", flush=True)
            if done % 50 == 0:
                print(f"{done} of {len(chosen)} after {time.monotonic() - started:.0f} s", flush=True)
    return report(chosen, counts, survivors, known, time.monotonic() - started)


def report(chosen, counts, survivors, known, seconds):
    compiled = len(chosen) - counts["not compiled"]
    print(f"{len(chosen)} mutants in {seconds:.0f} s: {counts['not compiled']} do not compile;"
          f" of the other {compiled}, " + ", ".join(f"{counts[tests]} killed by the {tests}" for tests, _, _ in STAGES)
          + f", {len(survivors & known)} explained, {len(survivors - known)} survived.")
    stale = [mutant for mutant in chosen if mutant in known and mutant not in survivors]
    for mutant in stale:
        print(f"Explained but killed: {describe(mutant)}")
    return 1 if survivors - known or stale else 0


if __name__ == "__main__":
    sys.exit(main())
