#!/usr/bin/env python3
"""Which sources of a target can be read by a compiler as one text.

A joined unit costs its headers once. Two sources cannot be joined where a name that one keeps to
itself (in a namespace without a name, or as a static) is spoken in the other: it would be taken for
the other's, or be defined twice. Names are looked for in the text alone, so that a pair may be kept
apart without need; what is joined and still does not compile must be told apart by its user.

    join.py --most BYTES FILE...    one group a line, its files divided by ';'
"""

import os
import re
import sys

# A unit much larger than this keeps one core busy while the other has nothing left to do.
MOST_BYTES = 60_000

_NO_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"([^(\s]*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\'', re.S)
_WORD = re.compile(r'[A-Za-z_]\w*')
_DIRECTIVE = re.compile(r'^[ \t]*#.*?(?<!\\)$', re.M | re.S)
_DEFINE = re.compile(r'^[ \t]*#[ \t]*define[ \t]+(\w+)', re.M)
_KEYWORDS = frozenset('''
    alignas auto bool break case char class const constexpr consteval constinit continue co_await
    co_return co_yield default delete do double else enum explicit extern false float for friend if
    inline int long mutable namespace new noexcept nullptr operator private public protected return
    short signed sizeof static struct switch template this throw true typedef typename union unsigned
    using virtual void volatile while override final std size_t
    TEST TEST_F TEST_P INSTANTIATE_TEST_SUITE_P Q_DECLARE_METATYPE Q_LOGGING_CATEGORY'''.split())


def without_comments(text):
    return _NO_CODE.sub(lambda match: ' ' if match[0].startswith('/') else '""', text)


def _body(text, start):
    """From behind an opening brace to its closing one."""
    depth = 1
    for match in re.finditer(r'[{}]', text[start:]):
        depth += 1 if match[0] == '{' else -1
        if depth == 0:
            return text[start:start + match.start()]
    return text[start:]


def _declared(body):
    """The names that are declared at the top of a namespace's body."""
    flat, depth = [], 0
    for piece in re.split(r'([{}])', body):
        if piece == '{':
            depth += 1
        elif piece == '}':
            depth -= 1
            if depth == 0:
                flat.append(';')
        elif depth == 0:
            flat.append(piece)
    names = set()
    for statement in ''.join(flat).split(';'):
        statement = re.sub(r'\[\[.*?\]\]', ' ', statement)
        # The same alias or using-declaration twice says the same thing twice.
        if re.match(r'\s*(?:using\s+(?:namespace\s+)?[\w:]+\s*$|namespace\s+\w+\s*=)', statement):
            continue
        head = re.match(r'\s*(?:template\s*<.*>\s*)?(?:struct|class|enum\s+class|enum|union|using|namespace)\s+(\w+)',
                        statement, re.S)
        if head and '(' not in statement:
            names.add(head[1])
            continue
        function = re.search(r'(\w+)\s*\(', re.sub(r'\b(?:decltype|noexcept|alignas|requires)\s*\(', ' ', statement))
        before = statement.split('=')[0]
        if function and (function.start() < len(before) or '=' not in statement):
            names.add(function[1])
        else:
            words = _WORD.findall(re.sub(r'[\[(].*', '', before, flags=re.S))
            if words:
                names.add(words[-1])
    return names - _KEYWORDS


def kept_and_spoken(text, kept_using):
    """The names that a source keeps to itself, and every word it speaks."""
    kept = set(_DEFINE.findall(text))
    code = _DIRECTIVE.sub(' ', without_comments(text))
    for match in re.finditer(r'\bnamespace\s*\{', code):
        kept |= _declared(_body(code, match.end()))
    for match in re.finditer(r'^(?:static|const|constexpr)\b[^;{=]*', code, re.M):
        words = _WORD.findall(match[0].split('(')[0])
        if words:
            kept.add(words[-1])
    if kept_using:
        kept |= set(re.findall(r'\busing\s+(?:\w+::)+(\w+)\s*;', code))
    spoken = set(re.findall(r'(?<![.>:\w])([A-Za-z_]\w*)', code))
    return kept - _KEYWORDS, spoken


class Group:
    """Sources that stand in one unit, and what a source's own names must be called in it."""

    def __init__(self, kind):
        self.kind, self.files, self.renamed = kind, [], {}
        self._bytes, self._texts, self._kept, self._spoken = 0, {}, {}, set()

    def takes(self, path, text, kept, spoken, most, rename):
        """Adds the source if it can stand with those that are there."""
        if self.files and self._bytes + len(text) > most:
            return False
        mine = {name for name in kept if name in self._spoken}
        theirs = {(name, owner) for name in spoken - mine for owner in self._kept.get(name, ())}
        if not rename and (mine or theirs):
            return False
        texts = {path: text}
        for name, owner in [(name, path) for name in mine] + sorted(theirs):
            if not renameable(texts.get(owner) or self._texts[owner], name):
                return False
        for name, owner in [(name, path) for name in mine] + sorted(theirs):
            stem = re.sub(r'\W', '_', os.path.splitext(os.path.basename(owner))[0])
            self.renamed.setdefault(owner, {})[name] = f'{name}_of_{stem}'
        self.files.append(path)
        self._bytes += len(text)
        self._texts[path] = text
        for name in kept:
            self._kept.setdefault(name, set()).add(path)
        self._spoken |= spoken | kept
        for name, owner in theirs:
            self._kept[name].discard(owner)
        for name in mine:
            self._kept[name].discard(path)
        return True


def renameable(text, name):
    """Whether every time that a source speaks a name of its own, it can only mean that."""
    code = without_comments(text)
    return not re.search(r'(?:\.|->|::)\s*' + name + r'\b', code) and \
        not re.search(r'^\s*#.*\b' + name + r'\b', code, re.M)


def with_names(text, renamed):
    """The text with names of its own renamed, its comments and literals left alone."""
    if not renamed:
        return text
    words = re.compile(r'\b(' + '|'.join(map(re.escape, renamed)) + r')\b')
    pieces, at = [], 0
    for match in _NO_CODE.finditer(text):
        pieces += [words.sub(lambda word: renamed[word[1]], text[at:match.start()]), match[0]]
        at = match.end()
    return ''.join(pieces) + words.sub(lambda word: renamed[word[1]], text[at:])


def groups(files, most=MOST_BYTES, rename=False):
    """The files, compiled alike, in as few groups as can be joined, none longer than `most` bytes.

    With `rename` the caller writes the texts himself (see with_names), so that only names that could
    also mean something else keep two sources apart. What a source brings in by `using` counts as its
    own then, so that it can be told whether that source needs it.
    """
    joined = []
    for path in sorted(files):
        with open(path, encoding='utf-8') as source:
            text = source.read()
        kept, spoken = kept_and_spoken(text, rename)
        if not any(group.takes(path, text, kept, spoken, most, rename)
                   for group in joined if group.kind == os.path.splitext(path)[1]):
            group = Group(os.path.splitext(path)[1])
            group.takes(path, text, kept, spoken, most, rename)
            joined.append(group)
    return joined


if __name__ == '__main__':
    arguments = sys.argv[1:]
    most = MOST_BYTES
    if arguments[:1] == ['--most']:
        most, arguments = int(arguments[1]), arguments[2:]
    for group in groups(arguments, most):
        print(';'.join(group.files))
