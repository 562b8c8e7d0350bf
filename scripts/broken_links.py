#!/usr/bin/env python3
"""Prints each link below a folder, in Markdown and HTML, that leads to no file or to no heading; fails if there is one.

    scripts/broken_links.py FOLDER
"""
import os
import re
import sys
import urllib.parse


def content_of(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def links_of(path):
    content = content_of(path)
    if path.endswith(".md"):
        return re.findall(r"\]\(([^)]*)\)", content)
    return re.findall(r"<(?:a|img|link|script)\b[^>]*?\b(?:href|src)=\"([^\"]*)\"", content)


def anchors_of(path):
    """Those of a Markdown heading: lower case, without punctuation, hyphens for blanks."""
    content = content_of(path)
    if not path.endswith(".md"):
        return set(re.findall(r"\b(?:id|name)=\"([^\"]*)\"", content))
    headings = re.findall(r"^#+ (.*)$", content, re.M)
    return {re.sub(r"[^a-z0-9 _-]", "", heading.lower()).replace(" ", "-") for heading in headings}


def is_broken(document, link):
    if re.match(r"[a-z]+:", link):
        return False
    path, _, anchor = urllib.parse.unquote(link).partition("#")
    target = os.path.join(os.path.dirname(document), path) if path else document
    if not os.path.exists(target):
        return True
    return anchor != "" and anchor not in anchors_of(target)


documents = [os.path.join(folder, name) for folder, _, names in os.walk(sys.argv[1]) for name in sorted(names)
             if name.endswith((".md", ".html"))]
broken = [(document, link) for document in documents for link in links_of(document) if is_broken(document, link)]
for document, link in broken:
    print(f"{document}: {link}")
sys.exit(1 if broken or not documents else 0)
