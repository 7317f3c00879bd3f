#!/usr/bin/env python3
"""check_links.py FOLDER: every link and picture of the pages in FOLDER leads to a file of it, and to a place there."""

import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src"):
                self.links.append(value)
            elif name == "id":
                self.places.add(value)


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    pages = {path: Page(path) for path in sorted(folder.glob("*.html"))}
    wrong = []
    links = 0
    for path, page in pages.items():
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme:
                continue
            links += 1
            to = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
            if not to.is_file() or folder not in to.parents:
                wrong.append(f"{path.name}: there is no {link}")
            elif parts.fragment and to in pages and parts.fragment not in pages[to].places:
                wrong.append(f"{path.name}: there is no such place: {link}")
    if wrong or not pages:
        sys.exit("\n".join(wrong) or f"there are no pages in {folder}")
    print(f"{len(pages)} pages, {links} links and pictures: all lead somewhere")


if __name__ == "__main__":
    main()
