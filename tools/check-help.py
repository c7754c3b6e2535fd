#!/usr/bin/python3
"""Checks the help book.

    check-help.py HELP_FOLDER MAIN_MENU_SOURCE

- every page of the book (every .html file in it) can be reached from index.html by links;
- every link and every picture a page names exists, and every #anchor names an id on its page;
- no page asks for anything from the network (the book must work offline);
- every caption of the main window's menus (read from the menu table in MAIN_MENU_SOURCE,
  access-key ampersands dropped, separators skipped) appears in the book's text.

Prints each problem and exits 1 if there is any.
"""

import html
import os
import re
import sys
from html.parser import HTMLParser
from urllib.parse import unquote, urlsplit


class PageReader(HTMLParser):
    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.links = []  # (attribute, target)
        self.ids = set()
        self.text = []

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if value is None:
                continue
            if name == "id" or (tag == "a" and name == "name"):
                self.ids.add(value)
            if (tag, name) in (("a", "href"), ("link", "href"), ("img", "src"),
                               ("script", "src"), ("iframe", "src")):
                self.links.append((tag, value))

    def handle_data(self, data):
        self.text.append(data)


def read_page(path):
    reader = PageReader()
    with open(path, encoding="utf-8") as f:
        reader.feed(f.read())
    return reader


def menu_captions(source):
    """The captions of the menu table: {"mnuName", "Caption", "Shortcut", level}."""
    with open(source, encoding="utf-8") as f:
        text = f.read()
    captions = []
    for name, caption in re.findall(r'\{"(\w+)",\s*"((?:[^"\\]|\\.)*)",\s*"[^"]*",\s*\d+\}', text):
        if caption == "-":
            continue
        captions.append((name, caption.replace("&", "")))
    return captions


def main(argv):
    if len(argv) != 3:
        print(__doc__)
        return 2
    folder, menu_source = argv[1], argv[2]
    problems = []
    pages = {}
    for root, _, files in os.walk(folder):
        for name in files:
            if name.endswith(".html"):
                path = os.path.normpath(os.path.join(root, name))
                pages[path] = read_page(path)
    index = os.path.normpath(os.path.join(folder, "index.html"))
    if index not in pages:
        print(f"{index}: the book has no index page")
        return 1

    # Links and pictures.
    edges = {page: set() for page in pages}
    for page, reader in sorted(pages.items()):
        for tag, target in reader.links:
            parts = urlsplit(target)
            if parts.scheme in ("http", "https", "ftp") or target.startswith("//"):
                if tag != "a":
                    problems.append(f"{page}: {tag} loads {target} from the network")
                continue
            if parts.scheme:  # mailto: and the like leave the book
                continue
            if parts.path:
                destination = os.path.normpath(
                    os.path.join(os.path.dirname(page), unquote(parts.path)))
            else:
                destination = page
            if not os.path.isfile(destination):
                problems.append(f"{page}: {tag} names {target}, which does not exist")
                continue
            if destination in pages:
                edges[page].add(destination)
                if parts.fragment and parts.fragment not in pages[destination].ids:
                    problems.append(f"{page}: {target} names an anchor that is not there")

    # Reachability from the index.
    seen, todo = {index}, [index]
    while todo:
        for nxt in edges[todo.pop()]:
            if nxt not in seen:
                seen.add(nxt)
                todo.append(nxt)
    for page in sorted(set(pages) - seen):
        problems.append(f"{page}: no link leads here from index.html")

    # Pictures in the folder that no page shows are dead weight.
    shown = set()
    for page, reader in pages.items():
        for tag, target in reader.links:
            if tag == "img":
                shown.add(os.path.normpath(os.path.join(os.path.dirname(page), target)))
    images = os.path.join(folder, "images")
    if os.path.isdir(images):
        for name in sorted(os.listdir(images)):
            path = os.path.normpath(os.path.join(images, name))
            if path not in shown:
                problems.append(f"{path}: no page shows this picture")

    # The menu captions.
    book_text = " ".join(" ".join(html.unescape(t) for t in r.text) for r in pages.values())
    book_text = re.sub(r"\s+", " ", book_text)
    captions = menu_captions(menu_source)
    if not captions:
        problems.append(f"{menu_source}: no menu captions found")
    for name, caption in captions:
        if caption not in book_text:
            problems.append(f"the book never names the menu caption \"{caption}\" ({name})")

    for problem in problems:
        print(problem)
    print(f"{len(pages)} pages, {len(captions)} menu captions, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
