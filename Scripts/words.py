#!/usr/bin/env python3
"""What a person reads, collected from the sources.

    Scripts/words.py                     writes Translations/wendlow.pot, which a translator copies
    Scripts/words.py --check [FOLDER...] whether that file is what the sources say, and whether a
                                         literal that reads like a sentence goes round its door
    Scripts/words.py --pseudo FILE       a catalogue in which each sentence stands in ⟦brackets⟧

A sentence goes through `say`, `say.plural`, `say.view` or, in a table, `sayLater` in C++, and through
`qsTr` in QML. Its context is the name of its module's door (the nearest Say.h), in QML that of its file.
"""

import collections
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TEMPLATE = "Translations/wendlow.pot"
EXCEPTIONS = "Translations/untranslated.txt"

# What nobody reads in a person's language: worlds that are made up, programs to practise with, what a
# model reads.
PASSED_OVER = re.compile(
    r"Companions/(Hook|MCP|Open|Practice\w+|Support)/|/Seeded/|/Benches/|/Bench\w*\.|Pictures\.|Posed|Snapshots"
    r"|SilentGateway|UnimplementedGateway|MockConnector|CXPCShim|/WendlowTranslation/")
# What is called so in every language.
NAMES = {"Wendlow", "Claude", "Claude Code", "Codex", "Cursor", "OpenCode"}
DOORS = {"say", "sayLater", "say.plural", "say.view", "qsTr"}

TOKEN = re.compile(
    r"""//[^\n]*|/\*.*?\*/
      |(?P<raw>(?:u8|u|U|L)?R"(?P<mark>[^()\s\\]*)\((?P<rawtext>.*?)\)(?P=mark)")
      |(?P<text>(?:u8|u|U|L)?"(?:\\.|[^"\\\n])*")
      |'(?:\\.|[^'\\\n])*'
      |(?P<name>[A-Za-z_][A-Za-z_0-9]*(?:(?:\.|::)[A-Za-z_][A-Za-z_0-9]*)*)
      |(?P<sign>[^\sA-Za-z_])|\s+""", re.S | re.X)
ESCAPES = {"n": "\n", "t": "\t", "r": "\r", "0": "\0", "a": "\a", "b": "\b", "f": "\f", "v": "\v", "e": "\x1b"}

Literal = collections.namedtuple("Literal", "file line words call place")


def unescaped(body):
    """What a literal's escapes stand for. A byte that is written by its number is no word's."""
    def one(match):
        what = match.group(1)
        if what[0] in "uU" and len(what) > 1:
            return chr(int(what[1:], 16))
        return "\ufffd" if what[0] == "x" else ESCAPES.get(what, what)
    return re.sub(r"\\(u[0-9a-fA-F]{4}|U[0-9a-fA-F]{8}|x[0-9a-fA-F]+|.)", one, body, flags=re.S)


def literals(path, text):
    """Each literal, neighbours joined, with the call in whose brackets it stands and its place there."""
    calls, before, line = [["", 0]], "", 1
    words, begun = None, 0
    for match in TOKEN.finditer(text):
        token = match.group(0)
        raw, plain = match.group("rawtext"), match.group("text")
        if raw is not None or plain is not None:
            part = raw if raw is not None else unescaped(plain[plain.index('"') + 1:-1])
            if words is None:
                words, begun = "", line
            words += part
        elif match.group("name") or match.group("sign"):
            # A suffix ("..."_s) and a macro between two literals end nothing.
            if words is not None and not (match.group("name") or "").startswith("_"):
                yield Literal(path, begun, words, calls[-1][0], calls[-1][1])
                words = None
            if token in "([{":
                calls.append([before if token == "(" else "", 0])
            elif token in ")]}" and len(calls) > 1:
                calls.pop()
            elif token == ",":
                calls[-1][1] += 1
            before = token
        line += token.count("\n")


def files(folders=("Sources", "Companions")):
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", *folders],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout.split("\n")
    return [path for path in sorted(set(listed)) if path.endswith((".cpp", ".h", ".qml"))
            and not PASSED_OVER.search("/" + path) and os.path.exists(os.path.join(ROOT, path))]


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        text = file.read()
    # What is included is a name of a file.
    return re.sub(r"^[ \t]*(#include|import|pragma)\b[^\n]*", "", text, flags=re.M)


def context(path, doors={}):
    """The name of the door that the file's module has."""
    if path.endswith(".qml"):
        return os.path.splitext(os.path.basename(path))[0]
    folder = os.path.dirname(path)
    if folder not in doors:
        door = os.path.join(ROOT, folder, "Say.h")
        if os.path.exists(door):
            with open(door, encoding="utf-8") as file:
                doors[folder] = re.search(r'\bsay\{"(\w+)"\}', file.read()).group(1)
        else:
            doors[folder] = context(folder) if folder else None
    return doors[folder]


def door(literal):
    """Which door it goes through: a whole text, one of a number's two, or nothing."""
    call = literal.call.split("::")[-1]
    if call not in DOORS:
        return None
    if call == "say.plural":
        return {1: "one", 2: "many"}.get(literal.place)
    return "whole" if literal.place == 0 else None


def entries():
    """Each sentence by context and English: its form for many, if it has one, and its files."""
    found = {}
    for path in files():
        one = None
        for literal in literals(path, read(path)):
            form = door(literal)
            if form in ("whole", "one"):
                key = (context(path), literal.words)
                if key[0] is None:
                    sys.exit(f"{path}:{literal.line}: there is no Say.h for this")
                entry = found.setdefault(key, {"many": None, "files": []})
                if path not in entry["files"]:
                    entry["files"].append(path)
                one = entry if form == "one" else None
            elif form == "many" and one is not None:
                one["many"] = literal.words
    return found


def quoted(words):
    words = words.replace("\\", "\\\\").replace('"', '\\"').replace("\t", "\\t").replace("\r", "\\r")
    lines = words.split("\n")
    if len(lines) == 1:
        return f'"{words}"'
    parts = [line + "\\n" for line in lines[:-1]] + ([lines[-1]] if lines[-1] else [])
    return '""\n' + "\n".join(f'"{part}"' for part in parts)


HEAD = ('msgid ""\nmsgstr ""\n"Content-Type: text/plain; charset=UTF-8\\n"\n'
        '"Content-Transfer-Encoding: 8bit\\n"\n"Language: {language}\\n"\n'
        '"Plural-Forms: nplurals=2; plural=(n != 1);\\n"\n')


def catalogue(translated, language=""):
    out = [HEAD.format(language=language)]
    for (where, english), entry in sorted(entries().items()):
        many = entry["many"]
        braces = re.search(r"\{[^{}]*\}", english + (many or ""))
        out.append("\n" + "".join(f"#: {path}\n" for path in entry["files"])
                   + ("#, c++-format\n" if braces and not entry["files"][0].endswith(".qml") else "")
                   + f"msgctxt {quoted(where)}\nmsgid {quoted(english)}\n"
                   + (f"msgid_plural {quoted(many)}\nmsgstr[0] {quoted(translated(english))}\n"
                      f"msgstr[1] {quoted(translated(many))}\n" if many is not None
                      else f"msgstr {quoted(translated(english))}\n"))
    return "".join(out)


def reads_like_a_sentence(words):
    """Two words or more, or one that begins like a label or stands beside a blank."""
    if re.search(r"\ufffd|::|^\w+://|^/|\.qml$|^(SELECT|INSERT|CREATE|DELETE|PRAGMA|UPDATE|WITH)\b|^[#<@$.]"
                 r"|^--|^~/|\.\w{2,5}$|^[a-z_]+=|^\w+\.\w+\.|^import |[{,]\"|\":|\"[}\]]", words):
        return False
    if words in NAMES:
        return False
    plain = re.sub(r"\{[^{}]*\}|%\d", " ", words)
    found = re.findall(r"[^\W\d_][\w’'\-]+", plain)
    if not found:
        return False
    if len(found) >= 2 and " " in plain.strip():
        return True
    if re.match(r"^[+✓ ]*[A-Z][a-z’]+[….:?!]*$", plain.strip()):
        return True
    return plain != plain.strip() and words == plain


# What is called with a literal that nobody reads: logs, keys, ways of Qt to name things.
UNREAD_CALLS = re.compile(
    r"(^|[.:])(QML_UNCREATABLE|qCDebug|qCInfo|qCWarning|qCCritical|qWarning|qDebug|qFatal|log\w*|setupLog"
    r"|setObjectName|property|setProperty|findChild|Q_ASSERT\w*|static_assert|Q_LOGGING_CATEGORY|invokeMethod"
    r"|deprecated|assert|createElement|startsWith|starts_with|endsWith|ends_with|contains)$")
UNREAD_QML = re.compile(r"(objectName|source|state|icon|symbol|sequence|name|family|role|roleName|kind|key|type"
                        r"|case|==|!=|===|!==)\s*:?\s*$")


def exceptions():
    """Lines `file pattern | literal pattern | why`, patterns in regular expressions for the whole."""
    listed = []
    with open(os.path.join(ROOT, EXCEPTIONS), encoding="utf-8") as file:
        for line in file:
            if line.strip() and not line.startswith("#"):
                path, words, why = line.rstrip("\n").split(" | ")
                listed.append((re.compile(path), re.compile(words, re.S), line.strip()))
    return listed


def round_the_door(folders):
    allowed, used, faults = exceptions(), set(), []
    for path in files(folders or ("Sources", "Companions")):
        text = read(path)
        lines = text.split("\n")
        for literal in literals(path, text):
            if door(literal) or UNREAD_CALLS.search(literal.call) or not reads_like_a_sentence(literal.words):
                continue
            if path.endswith(".qml"):
                upto = lines[literal.line - 1].split('"')[0]
                if UNREAD_QML.search(upto):
                    continue
            exception = next((e for e in allowed if e[0].fullmatch(path) and e[1].fullmatch(literal.words)), None)
            if exception:
                used.add(exception[2])
                continue
            faults.append(f"{path}:{literal.line}: {literal.words!r}")
    if not folders:
        faults += [f"{EXCEPTIONS}: excepts nothing: {e[2]}" for e in allowed if e[2] not in used]
    return faults


def template_there():
    with open(os.path.join(ROOT, TEMPLATE), encoding="utf-8") as file:
        return file.read()


def check(folders):
    faults = round_the_door(folders)
    if faults:
        print("read by a person, and said through no door (docs/translating.md):\n" + "\n".join(faults))
    if not folders and template_there() != catalogue(lambda english: ""):
        faults.append(TEMPLATE)
        print(f"{TEMPLATE} is not what the sources say; Scripts/words.py writes it")
    return 1 if faults else 0


def main(arguments):
    if arguments[:1] == ["--check"]:
        return check(arguments[1:])
    if arguments[:1] == ["--pseudo"] and len(arguments) == 2:
        with open(arguments[1], "w", encoding="utf-8") as file:
            file.write(catalogue(lambda english: f"⟦{english}⟧", "qps"))
        return 0
    if arguments:
        sys.exit(__doc__)
    template = catalogue(lambda english: "")
    with open(os.path.join(ROOT, TEMPLATE), "w", encoding="utf-8") as file:
        file.write(template)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
