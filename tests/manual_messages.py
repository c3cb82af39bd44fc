"""Every message that the program can show must be explained in the manual, word for word.

    manual_messages.py SOURCE_FOLDER MANUAL

Messages are the texts of message boxes and whole sentences in the sources. What saldoro-archivio
finds carries its own advice and goes on in lower case behind its place, so that of that program only
what keeps it from its work is looked for.
"""
import re
import sys
from pathlib import Path

LITERAL = r'(?:u8?|L)?"(?:[^"\\]|\\.)*"'
TEXT = re.compile(rf'{LITERAL}(?:\s*{LITERAL})*')
BOX = re.compile(r'\b(?:ShowMessage|ChiediConferma)\(')
SENTENCE = re.compile(r'^[A-ZÀÈÌÒÙ][^<>]* [^<>]*(?:\w{3}|%\d)\.$')
# Sentences of these files are found in pieces: the report around an error.
REPORTS = {'error_report.cpp'}


def joined(source):
    """The text of adjacent literals."""
    text = ''.join(re.findall(r'"((?:[^"\\]|\\.)*)"', source))
    return text.replace('\\n', '\n').replace('\\"', '"')


def call(source, start):
    """The source from start to the bracket that closes the one before it."""
    depth, end, quoted = 1, start, False
    while depth:
        if source[end] == '"' and source[end - 1] != '\\':
            quoted = not quoted
        elif not quoted:
            depth += {'(': 1, ')': -1}.get(source[end], 0)
        end += 1
    return source[start:end]


def messages(path):
    source = path.read_text(encoding='utf-8')
    source = re.sub(r"//[^\n]*|/\*.*?\*/|'\"'", '', source, flags=re.S)
    for match in BOX.finditer(source):
        for text in TEXT.findall(call(source, match.end())):
            yield joined(text)
    for text in TEXT.findall(source):
        for line in joined(text).split('\n'):
            if SENTENCE.match(line) or (path.name in REPORTS and ' ' in line):
                yield line


def plain(text):
    return ' '.join(re.sub(r'[*`\\]', '', text).replace('’', "'").split())


def main(sources, manual):
    explained = plain(Path(manual).read_text(encoding='utf-8'))
    wanted = {(plain(text), path.name)
              for path in Path(sources).rglob('*.cpp') for text in messages(path)}
    wanted = {(text, name) for text, name in wanted if len(text) > 2 and ' ' in text}
    missing = []
    for text, name in sorted(wanted):
        pattern = re.sub(r'%\d', r'\\S+', re.escape(text).replace(r'\%', '%'))
        if not re.search(pattern, explained):
            missing.append(f'{name}: {text}')
    print(f'{len(wanted)} messages, {len(missing)} not in the manual', *missing, sep='\n')
    # Far fewer than there are: the messages are no longer found in the sources.
    return 1 if missing or len(wanted) < 60 else 0


if __name__ == '__main__':
    sys.exit(main(*sys.argv[1:]))
