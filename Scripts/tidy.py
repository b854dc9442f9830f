#!/usr/bin/env python3
"""clang-tidy over every source of the product, a target's texts joined into few units.

The analyzer follows paths only in the text of the file that it is given, so the texts are joined
and not included: a line of the unit is a line of one source, and findings are told by that. What
two sources call by the same name, each to itself, is renamed (cmake/join.py). Where such a unit
does not compile after all, it is taken in halves, down to the single file, whose errors are then its own.

A unit whose preprocessed text, arguments and checks were found clean before is not looked at again.
Whether it could have changed is asked of the files it read, so that a run over a tree that was
checked costs the hashing of those files.

It needs what the build writes (moc's and the QML modules' headers), so it runs after the build:

    Scripts/tidy.py [--jobs N] [--build DIR] [PATH...]   only the units that hold one of the paths
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import re
import resource
import shlex
import subprocess
import sys
import threading

ROOT = os.path.realpath(os.path.join(os.path.dirname(__file__), '..'))
sys.path.insert(0, os.path.join(ROOT, 'cmake'))
import join  # noqa: E402

COMPILER, CHECKER = 'clang++-19', 'clang-tidy-19'
# Fewer paths than the analyzer would walk by itself, at a seventh of the cost. What is known of the loss:
# Scripts/seeded-faults.py finds all it plants.
LIMITS = ['mode=shallow', 'max-nodes=40000']
MOST_BYTES = 80_000
WORK = os.path.join(ROOT, 'build', 'tidy')
_MOC = re.compile(r'^#include "(moc_\w+\.cpp|\w+\.moc)"$', re.M)
_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"][^>"]+[>"])', re.M)


def sha(data):
    return hashlib.sha256(data).hexdigest()[:32]


class Files:
    """The hash of each file, computed once a run."""

    def __init__(self):
        self._known = {}

    def hash(self, path):
        if path not in self._known:
            try:
                with open(path, 'rb') as file:
                    self._known[path] = sha(file.read())
            except OSError:
                self._known[path] = None
        return self._known[path]


FILES = Files()
OUTPUT = threading.Lock()


def read(path):
    with open(path, encoding='utf-8') as file:
        return file.read()


def as_text(header):
    """A copy of the header that the build precompiles; beside it clang would look for its own form of it."""
    text = read(header)
    copy = os.path.join(WORK, 'headers', sha(text.encode()) + '.h')
    os.makedirs(os.path.dirname(copy), exist_ok=True)
    if not os.path.exists(copy):
        with open(copy, 'w', encoding='utf-8') as file:
            file.write(text)
    return copy


def arguments_of(entry):
    """What the build compiles a source with, as clang reads it: no output, no precompiled header."""
    words = shlex.split(entry['command'])
    while words and not re.search(r'(^|/)(g|c|clang)\+\+(-\d+)?$', words[0]):
        words.pop(0)
    kept, words = [], iter(words[1:])
    for word in words:
        if word == '-include':
            kept += ['-include', as_text(next(words))]
        elif word in ('-o', '-c', '-include-pch', '-MF', '-MT', '-MQ'):
            next(words)
        elif word.startswith(('-W', '-O', '-g', '-MD', '-M')) or word == '-Winvalid-pch':
            continue
        else:
            kept.append(word)
    # Warnings belong to the builds; errors alone are told here.
    return kept + ['-w', '-O0']


class Unit:
    """Some sources that are compiled alike, and the names that are their own and not their neighbours'."""

    def __init__(self, files, renamed, arguments):
        self.files, self.renamed, self.arguments = files, renamed, arguments
        self.name = sha('\n'.join(files + arguments).encode())[:16]
        folder = os.path.relpath(os.path.dirname(files[0]), ROOT).replace('/', '-')
        self.path = os.path.join(WORK, 'units', f'{folder}-{self.name}.cpp')

    def write(self):
        """The joined text, and for each of its lines the source and line that it is."""
        lines, places, included = [], [], set()
        for path in self.files:
            # What moc writes is no text of ours.
            text, mine = _MOC.sub('', read(path)), set()

            def once(match):
                # What an earlier source has included is there. Twice in one source is a finding.
                named = match[1]
                beside = os.path.join(os.path.dirname(path), named[1:-1])
                if named[0] == '"' and os.path.exists(beside):
                    named = f'"{os.path.normpath(beside)}"'
                mine.add(named)
                return '' if named in included else match[0].replace(match[1], named)

            text = join.with_names(_INCLUDE.sub(once, text), self.renamed.get(path))
            included |= mine
            for number, line in enumerate(text.split('\n'), 1):
                lines.append(line)
                places.append((path, number))
        text = '\n'.join(lines) + '\n'
        os.makedirs(os.path.dirname(self.path), exist_ok=True)
        if not os.path.exists(self.path) or read(self.path) != text:
            with open(self.path, 'w', encoding='utf-8') as file:
                file.write(text)
        self._places = places

    def compile_arguments(self):
        return self.arguments

    def told(self, text):
        """What clang-tidy says, about the sources and not the unit."""

        def place(match):
            path, line = self._places[min(int(match[1]), len(self._places)) - 1]
            return f'{os.path.relpath(path, ROOT)}:{line}'

        text = re.sub(re.escape(self.path) + r':(\d+)', place, text)
        # A header may have been found through a link.
        text = re.sub(r'^(/[^:\n]+)(?=:\d+:\d+: )', lambda path: os.path.realpath(path[1]), text, flags=re.M)
        text = text.replace(ROOT + '/', '')
        # The numbers beside the quoted lines are the unit's.
        return re.sub(r'^ +\d+ \|', '      |', text, flags=re.M)

    def preprocessed(self):
        """The hash of the text that the compiler sees, and the files that it was read from."""
        depends = self.path + '.d'
        run = subprocess.run(
            [COMPILER, *self.compile_arguments(), '-E', '-P', '-MD', '-MF', depends, self.path],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, cwd=ROOT, check=False)
        if run.returncode != 0:
            return None, []
        files = [word for word in read(depends).replace('\\\n', ' ').split() if not word.endswith(':')]
        # A comment can silence a check.
        silenced = ''.join(re.findall(r'.*NOLINT.*', ''.join(
            read(path) for path in files if path.startswith(ROOT))))
        return sha(run.stdout + silenced.encode()), files


def checks_hash():
    version = subprocess.run([CHECKER, '--version'], stdout=subprocess.PIPE, check=True).stdout
    return sha(read(os.path.join(ROOT, '.clang-tidy')).encode() + version + read(__file__).encode())


class Stamps:
    """What was found clean, or could not stand together, by the hash of the text."""

    def __init__(self, checks):
        self._checks = checks

    def _path(self, kind, name):
        folder = os.path.join(WORK, kind)
        os.makedirs(folder, exist_ok=True)
        return os.path.join(folder, name)

    def _reads(self, unit):
        return self._path('reads', sha((unit.name + self._checks).encode()) + '.json')

    def text_if_unchanged(self, unit):
        try:
            known = json.loads(read(self._reads(unit)))
        except (OSError, ValueError):
            return None
        same = all(FILES.hash(path) == value for path, value in known['files'].items())
        return known['text'] if same else None

    def remember_reads(self, unit, text, files):
        with open(self._reads(unit), 'w', encoding='utf-8') as file:
            json.dump({'text': text, 'files': {path: FILES.hash(path) for path in files}}, file)

    def verdict(self, unit, text):
        name = sha((text + ' '.join(unit.arguments) + self._checks).encode())
        for kind in ('clean', 'apart'):
            if os.path.exists(self._path(kind, name)):
                return kind
        return None

    def remember(self, unit, text, kind):
        name = sha((text + ' '.join(unit.arguments) + self._checks).encode())
        with open(self._path(kind, name), 'w', encoding='utf-8') as file:
            file.write('\n'.join(unit.files) + '\n')


def check(unit, stamps):
    """Findings of the unit, told of its sources; empty if it is clean. And how many were looked at."""
    unit.write()
    text = stamps.text_if_unchanged(unit)
    if text is None:
        text, files = unit.preprocessed()
        if text is not None:
            stamps.remember_reads(unit, text, files)
    verdict = stamps.verdict(unit, text) if text else None
    if verdict == 'clean':
        return '', 0
    looked = 0
    if verdict is None:
        limits = [word for limit in LIMITS for word in ('-Xclang', '-analyzer-config', '-Xclang', limit)]
        run = subprocess.run(
            [CHECKER, '--quiet', f'--config-file={ROOT}/.clang-tidy', unit.path, '--',
             *unit.compile_arguments(), *limits],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, cwd=ROOT, check=False, text=True)
        looked = 1
        if run.returncode == 0 and not run.stdout.strip():
            if text:
                stamps.remember(unit, text, 'clean')
            return '', looked
        if 'clang-diagnostic-error' not in run.stdout or len(unit.files) == 1:
            return unit.told(run.stdout or run.stderr), looked
        if text:
            stamps.remember(unit, text, 'apart')
        with OUTPUT:
            first = re.search(r'^.*clang-diagnostic-error.*$', unit.told(run.stdout), re.M)
            print(f'not as one unit, so in halves: {first[0]}', flush=True)
    middle = (len(unit.files) + 1) // 2
    findings = ''
    for half in (unit.files[:middle], unit.files[middle:]):
        found, more = check(Unit(half, unit.renamed, unit.arguments), stamps)
        findings, looked = findings + found, looked + more
    return findings, looked


def units(build, only):
    listed = subprocess.run(['git', 'ls-files', '-z', '--', 'Sources/*.cpp', 'Companions/*.cpp'],
                            stdout=subprocess.PIPE, cwd=ROOT, check=True).stdout.decode().split('\0')
    wanted = {os.path.join(ROOT, path) for path in listed if path}
    by_arguments = {}
    for entry in json.loads(read(os.path.join(build, 'compile_commands.json'))):
        path = os.path.realpath(os.path.join(entry['directory'], entry['file']))
        if path in wanted:
            wanted.remove(path)
            by_arguments.setdefault(tuple(arguments_of(entry)), []).append(path)
    for path in sorted(wanted):
        sys.exit(f'{os.path.relpath(path, ROOT)}: the build does not compile it, so it cannot be checked')
    found = [Unit(group.files, group.renamed, list(arguments))
             for arguments, files in by_arguments.items() for group in join.groups(files, MOST_BYTES, rename=True)]
    if only:
        only = {os.path.realpath(path) for path in only}
        found = [unit for unit in found if only & set(unit.files)]
    # The longest first, so that the last one does not run alone.
    return sorted(found, key=lambda unit: -sum(os.path.getsize(path) for path in unit.files))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--jobs', type=int, default=2)
    parser.add_argument('--build', default=os.path.join(ROOT, 'build', 'dev'))
    parser.add_argument('paths', nargs='*')
    arguments = parser.parse_args()

    stamps, told, looked = Stamps(checks_hash()), set(), 0
    todo = units(arguments.build, arguments.paths)
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for findings, more in pool.map(lambda unit: check(unit, stamps), todo):
            looked += more
            # A header's finding is the same in every unit that reads it.
            for block in re.split(r'\n(?=\S+:\d+:\d+: (?:error|warning): )', findings.strip()):
                if block and block not in told:
                    told.add(block)
                    print(block, flush=True)
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    print(f'{len(todo)} units, {looked} looked at, {used.ru_utime + used.ru_stime:.0f} s of processor time')
    if told:
        sys.exit(1)
    print('clean')


if __name__ == '__main__':
    main()
