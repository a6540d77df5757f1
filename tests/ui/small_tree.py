"""A small document for tests that type into it, and documents that are damaged."""

import json
import os
import subprocess

TREE = {"name": "Master", "folder": True, "openFolder": True, "children": [
    {"name": "first", "url": "https://first.example/"},
    {"name": "Folder", "folder": True, "openFolder": True, "children": [
        {"name": "inside", "url": "https://inside.example/"}]},
    {"name": "last", "url": "https://last.example/"}]}


def make_document(desktop, name, tree=None):
    source = os.path.join(desktop.folder, "tree.json")
    document = os.path.join(desktop.folder, name + ".tbln")
    with open(source, "w", encoding="utf-8") as file:
        json.dump(tree or TREE, file)
    subprocess.run([desktop.tool, "make", source, "-o", document], check=True)
    return document


def damage(path, name):
    """Damages the marker of a short ASCII name, so that its bookmark cannot be read."""
    with open(path, "rb") as file:
        content = bytearray(file.read())
    content[content.index(bytes([0x50 + len(name)]) + name)] = 0x0F
    with open(path, "wb") as file:
        file.write(content)
    return content
