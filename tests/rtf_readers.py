#!/usr/bin/env python3
"""Documents as readers of other makers see them: rtf_readers.py RTF_CASES_PROGRAM

Two readers have to give back the texts that were meant. Both have habits of their own, which are
allowed for here and nowhere else:
- the word processor drops control characters below the blank (other than tab);
- the converter drops empty paragraphs, and reads a character beyond the basic plane as two
  replacement characters.
Exit status 77 means that a reader is not installed.
"""

import json
import re
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path


def lines_of(text):
    return re.split("\r\n|[\n-\r]", text)


def word_processor_reads(documents, folder):
    """The paragraphs of each document as the word processor exports them."""
    subprocess.run(
        ["soffice", f"-env:UserInstallation={(folder / 'profile').as_uri()}", "--headless",
         "--convert-to", "txt:Text (encoded):UTF8", "--outdir", folder / "read", *documents],
        check=True, capture_output=True, timeout=200)
    read = {}
    for document in documents:
        text = (folder / "read" / document.name).with_suffix(".txt").read_bytes().decode("utf-8-sig")
        assert text.endswith("\n"), document
        read[document] = text[:-1].split("\n")
    return read


def converter_reads(document):
    """The paragraphs of a document in the converter's own form; fixed pitch makes them code."""
    run = subprocess.run(["pandoc", "-f", "rtf", "-t", "json", document], check=True,
                         capture_output=True, timeout=200)
    blocks = json.loads(run.stdout)["blocks"]
    assert all(block["t"] == "CodeBlock" for block in blocks), document
    return [block["c"][1] for block in blocks]


def as_word_processor(text):
    return [re.sub("[\0-\x08\x0e-\x1f]", "", line) for line in lines_of(text)]


def as_converter(text):
    lines = (re.sub("[\U00010000-\U0010ffff]", "\ufffd\ufffd", line) for line in lines_of(text))
    return [line for line in lines if line]


def difference(document, reader, read, meant):
    if read == meant:
        return None
    place = next((i for i, pair in enumerate(zip(read, meant)) if pair[0] != pair[1]),
                 min(len(read), len(meant)))
    return (f"{document.name}, {reader}: {len(read)} lines for {len(meant)}, line {place}:\n"
            f"  read  {str(read[place:place + 1])[:300]}\n"
            f"  meant {str(meant[place:place + 1])[:300]}")


def main(program):
    missing = [name for name in ("soffice", "pandoc") if not shutil.which(name)]
    if missing:
        print("skipped, not installed:", *missing)
        return 77
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        subprocess.run([program, folder], check=True)
        meant = {path.with_suffix(".rtf"): path.read_bytes().decode()
                 for path in sorted(folder.glob("*.txt"))}
        with ThreadPoolExecutor(max_workers=2) as pool:
            processed = pool.submit(word_processor_reads, list(meant), folder)
            converted = dict(zip(meant, pool.map(converter_reads, meant)))
        failures = []
        for document, text in meant.items():
            read = processed.result()[document]
            failures += filter(None, [
                difference(document, "word processor", read, as_word_processor(text)),
                difference(document, "converter", converted[document], as_converter(text))])
    print(*failures, f"{len(meant)} documents, {len(failures)} failures", sep="\n")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
