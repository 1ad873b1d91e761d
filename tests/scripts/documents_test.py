# SPDX-License-Identifier: MIT
"""Whether what the documents link to and the files that they name are there."""

import os
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))

LINK = re.compile(r"""\]\(([^)\s]+)\)|(?:src|href)="([^"]+)\"""")
CODE = re.compile(r"^ {4}.*$|```.*?^```$|`[^`]+`", re.MULTILINE | re.DOTALL)
WORD = re.compile(r"[\w.*-]+(?:/[\w.*-]+)*/?")
FILE_NAME = re.compile(r"[\w-]+\.(?:cmake|cpp|h|inc|md|py|sh|ts)")


def project_files():
    """All files and folders but what is built."""
    for folder, folders, files in os.walk(ROOT):
        if folder == str(ROOT):
            folders[:] = [name for name in folders if name != ".git" and not name.startswith("build")]
        yield from (pathlib.Path(folder, name) for name in folders + files)


FILES = list(project_files())
NAMES = {path.name for path in FILES}
FOLDERS = {path.name for path in FILES if path.is_dir() and path.parent == ROOT}
DOCUMENTS = [path for path in FILES if path.suffix == ".md"]


def anchors(document):
    """The names that the headings of a document have in links."""
    headings = re.findall(r"^#+ +(.*)$", document.read_text(encoding="utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w -]", "", heading).lower().replace(" ", "-") for heading in headings}


def leads_nowhere(document, link):
    if re.match(r"[a-z]+:", link):
        return False
    path, _, anchor = link.partition("#")
    target = document.parent / path if path else document
    return not target.exists() or (anchor and anchor not in anchors(target))


def exists(document, word):
    """Whether a file or folder has this name, which may lack its extension or be a pattern."""
    return any(
        list(folder.glob(word)) or list(folder.glob(word.rstrip("/") + ".*"))
        for folder in (ROOT, document.parent)
    )


def missing_files(document):
    for code in CODE.findall(document.read_text(encoding="utf-8")):
        for word in WORD.findall(code):
            first, is_path, rest = word.partition("/")
            if is_path and (first in FOLDERS or (not rest and first != "build")):
                if not exists(document, word):
                    yield word
            elif FILE_NAME.fullmatch(word) and word not in NAMES:
                yield word


class DocumentsTest(unittest.TestCase):
    def test_every_link_leads_somewhere(self):
        for document in DOCUMENTS:
            links = [a or b for a, b in LINK.findall(document.read_text(encoding="utf-8"))]
            with self.subTest(document=str(document.relative_to(ROOT))):
                self.assertEqual([link for link in links if leads_nowhere(document, link)], [])

    def test_every_file_that_is_named_is_there(self):
        for document in DOCUMENTS:
            with self.subTest(document=str(document.relative_to(ROOT))):
                self.assertEqual(sorted(set(missing_files(document))), [])

    def test_there_are_links_and_names_to_check(self):
        readme = ROOT / "README.md"
        self.assertIn("docs/development.md", str(LINK.findall(readme.read_text(encoding="utf-8"))))
        self.assertTrue(leads_nowhere(readme, "docs/none.md"))
        self.assertTrue(leads_nowhere(readme, "README.md#none"))
        self.assertFalse(exists(readme, "docs/none.md"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
