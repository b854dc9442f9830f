#!/usr/bin/env python3
"""Do the checks find what they are there for? One fault of each kind is planted in a copy of this
tree, the one step that must find it is run, and it is told whether it was found.

    Scripts/seeded-faults.py [--list] [KIND...]     all kinds, if none is named

The copy is a work tree in build/seeded, made from the last commit and kept, with its builds, until
the next time; nothing is ever planted in the caller's tree. Each fault stands behind the last line
of a file, so that it does not depend on what the file says. Exits with 1 if one was not found.
"""

import argparse
import functools
import os
import re
import subprocess
import sys
import time

ROOT = os.path.realpath(os.path.join(os.path.dirname(__file__), '..'))
COPY = os.path.join(ROOT, 'build', 'seeded')


def run(*command, **more):
    return subprocess.run(command, cwd=COPY, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                          text=True, errors='replace', **more)


def tracked(pattern):
    return sorted(path for path in run('git', 'ls-files', '--', pattern).stdout.split('\n') if path)


def source(*patterns):
    """The first file there is: folders move, the subjects stay."""
    for pattern in patterns:
        for path in tracked(pattern):
            return path
    sys.exit(f'nowhere to plant: none of {", ".join(patterns)} is there')


def built_and_run(preset, target, test):
    """The test program of a preset, run for the one test."""

    def step():
        for command in (['cmake', '--preset', preset],
                        ['cmake', '--build', '--preset', preset, '--target', target, '-j2']):
            done = run(*command)
            if done.returncode != 0:
                return False, done.stdout
        found = subprocess.run(['find', f'build/{preset}', '-type', 'f', '-name', target], cwd=COPY,
                               stdout=subprocess.PIPE, text=True, check=True).stdout.split()
        done = run(found[0], f'--gtest_filter={test}', timeout=600)
        return done.returncode != 0, done.stdout

    return step


# A test that nothing but the sanitizer can fail.
def in_a_test(includes, body):
    return ''.join(f'#include {name}\n' for name in includes) + \
        'TEST(Seeded, Fault) {\n' + body + '\n    SUCCEED();\n}\n'


LEAK = in_a_test(['<cstdlib>'], '''    char* volatile lost = new char[40];
    lost[0] = 'x';
    lost = nullptr;''')
OVERFLOW = in_a_test(['<vector>'], '''    std::vector<char> few(8, 'x');
    volatile std::size_t beyond = 8;
    volatile char read = few.data()[beyond];
    (void)read;''')
# A row is read after the model has let go of its rows.
USE_AFTER_FREE = in_a_test(['<QAbstractListModel>', '<memory>'], '''    struct Rows : QAbstractListModel {
        std::unique_ptr<int[]> rows = std::make_unique<int[]>(4);
        int* first = rows.get();
        int rowCount(const QModelIndex&) const override { return 4; }
        QVariant data(const QModelIndex& index, int) const override { return first[index.row()]; }
        void reset() {
            beginResetModel();
            rows = std::make_unique<int[]>(4);
            endResetModel();
        }
    } model;
    model.reset();
    EXPECT_EQ(model.data(model.index(1), Qt::DisplayRole).toInt(), 0);''')
UNDEFINED = in_a_test(['<limits>'], '''    volatile int most = std::numeric_limits<int>::max();
    volatile int more = most + 1;
    (void)more;''')
RACE = in_a_test(['<thread>'], '''    int shared = 0;
    std::thread other([&] { for (int i = 0; i < 10000; ++i) shared += 1; });
    for (int i = 0; i < 10000; ++i)
        shared += 1;
    other.join();''')

ANALYSED = {
    'null': ('clang-analyzer-core.NullDereference',
             'int nullSeeded(const int* value) {\n    if (value == nullptr)\n        return *value;\n    return 1;\n}'),
    'zero': ('clang-analyzer-core.DivideZero',
             'int zeroSeeded(int value) {\n    const int none = value > 3 ? 0 : 1;\n    return value / none;\n}'),
    'stack': ('clang-analyzer-core.StackAddressEscape',
              'const int* stackSeeded(int value) {\n    const int local = value;\n    const int* out = &local;\n    return out;\n}'),
    'uninitialised': ('clang-analyzer-core.UndefinedBinaryOperatorResult',
                      'int uninitialisedSeeded(bool some) {\n    int value;\n    if (some)\n        value = 3;\n    return value + 1;\n}'),
    'moved': ('bugprone-use-after-move',
              'std::size_t movedSeeded(std::string text) {\n    const std::string taken = std::move(text);\n'
              '    return taken.size() + text.size();\n}'),
    'dead-store': ('clang-analyzer-deadcode.DeadStores',
                   'int deadstoreSeeded(int value) {\n    int kept = value * 2;\n    kept = value;\n    return kept;\n}'),
    'clone': ('bugprone-branch-clone',
              'int cloneSeeded(int value) {\n    if (value > 3) {\n        return value + 2;\n    } else {\n'
              '        return value + 2;\n    }\n}'),
}


def kinds():
    """Name, the file that gets the fault, the fault, the step, and what it must say."""
    connectors = source('Tests/WendlowConnectors/FindingTests.cpp', 'Tests/WendlowConnectors/*.cpp')
    # A model of the Editor's shell or floor; a source that is joined with its neighbours.
    shell_test = source('Tests/WendlowEditor/Shell/*Tests.cpp', 'Tests/WendlowEditor/*Tests.cpp')
    shell = source('Sources/WendlowEditor/Shell/EditorWords.cpp', 'Sources/WendlowEditor/Shell/*.cpp')
    client = source('Tests/WendlowKit/Gateway/XPCClientTests.cpp')

    yield 'leak', connectors, LEAK, built_and_run('sanitize', 'WendlowConnectorsTests', 'Seeded.*'), 'LeakSanitizer'
    yield ('overflow', connectors, OVERFLOW, built_and_run('sanitize', 'WendlowConnectorsTests', 'Seeded.*'),
           'heap-buffer-overflow')
    yield ('undefined', connectors, UNDEFINED, built_and_run('sanitize', 'WendlowConnectorsTests', 'Seeded.*'),
           'signed integer overflow')
    yield ('use-after-free', shell_test, USE_AFTER_FREE,
           built_and_run('sanitize', 'WendlowEditorShellTests', 'Seeded.*'), 'heap-use-after-free')
    yield 'race', client, RACE, built_and_run('tsan', 'GatewayClientTests', 'Seeded.*'), 'data race'

    # All in one source and one run; each must be told in the function that has it.
    planted = '#include <string>\n#include <utility>\nnamespace wendlow::planted {\n' + \
        '\n'.join(text for _, text in ANALYSED.values()) + '\n}\n'

    @functools.cache
    def analysis():
        done = run('cmake', '--preset', 'dev')
        if done.returncode == 0:
            done = run('Scripts/tidy.py', shell)
        return done.returncode != 0, done.stdout

    for name, (check, _) in ANALYSED.items():
        yield name, shell, planted, analysis, f'{shell}:[^\n]*{check}'

    def formatting():
        done = run('clang-format-19', '--dry-run', '-Werror', connectors)
        return done.returncode != 0, done.stdout

    yield 'formatting', connectors, 'namespace   seeded{ }\n', formatting, 'clang-format-violations'

    def words():
        done = run('Scripts/words.py', '--check')
        return done.returncode != 0, done.stdout

    yield ('words', shell, 'const char* wordsSeeded() {\n    return "Round the door it went";\n}\n', words,
           f'{shell}:[0-9]+: .Round the door')

    page = source('Sources/WendlowSettings/*.qml')

    def lint():
        done = run('cmake', '--preset', 'dev')
        if done.returncode == 0:
            done = run('cmake', '--build', 'build/dev', '--target', 'all_qmllint', '-j2')
        return done.returncode != 0, done.stdout

    yield 'qml', page, None, lint, 'seededName'


def plant(path, fault):
    whole = os.path.join(COPY, path)
    with open(whole, encoding='utf-8') as file:
        text = file.read()
    if fault is None:
        # Before the last brace of the outermost object.
        end = text.rstrip().rindex('}')
        fault = text[:end] + '    readonly property int seeded: seededName\n}\n'
    else:
        fault = text + '\n' + fault
    with open(whole, 'w', encoding='utf-8') as file:
        file.write(fault)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--list', action='store_true')
    parser.add_argument('kinds', nargs='*')
    arguments = parser.parse_args()

    head = subprocess.run(['git', 'rev-parse', 'HEAD'], cwd=ROOT, stdout=subprocess.PIPE, text=True,
                          check=True).stdout.strip()
    if not os.path.exists(os.path.join(COPY, '.git')):
        subprocess.run(['git', 'worktree', 'prune'], cwd=ROOT, check=True)
        subprocess.run(['git', 'worktree', 'add', '--force', '--detach', COPY, head], cwd=ROOT, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    run('git', 'checkout', '--force', '--detach', head)

    chosen = [kind for kind in kinds() if not arguments.kinds or kind[0] in arguments.kinds]
    if arguments.list:
        print('\n'.join(kind[0] for kind in chosen))
        return
    if set(arguments.kinds) - {kind[0] for kind in chosen}:
        sys.exit('there is no such kind')
    missed = 0
    for name, path, fault, step, expected in chosen:
        began = time.monotonic()
        plant(path, fault)
        try:
            failed, said = step()
        finally:
            run('git', 'checkout', '--force', '--', path)
        found = failed and re.search(expected, said) is not None
        missed += not found
        print(f'{"found" if found else "NOT FOUND":10} {name:16} {path}  ({time.monotonic() - began:.0f} s)',
              flush=True)
        if not found:
            print(said[-3000:])
    sys.exit(1 if missed else 0)


if __name__ == '__main__':
    main()
