#!/usr/bin/env python3
"""Shows that the tests of the menu commands find every exchanged action: mutate-menu.py [NUMBER]

Each mutation exchanges two neighbouring names of actions in one source: in the tables of the menu, or where a class
registers its actions. The tests are built with it and must fail. With NUMBER, that many mutations are made, evenly
spread over all. The sources are copied to build/mutations first, so the tree stays as it is.
"""

import os
import re
import shutil
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
COPY = os.path.join(ROOT, "build", "mutations")
# In this table a name only connects a menu title with its own row, so that an exchange of two names has no
# effect.
EQUIVALENT_SOURCES = {"app/ImportSource.cpp"}
# These actions show the same alert.
EQUIVALENT_ACTIONS = {"importFirefox:", "importTor:"}
ACTION = re.compile(r'"([a-zA-Z]+:)"')


def sources():
    listed = subprocess.run(["git", "ls-files", "app/*.cpp", "window/*.cpp"], cwd=ROOT, check=True,
                            capture_output=True, text=True).stdout.split()
    return [source for source in listed if source not in EQUIVALENT_SOURCES and ACTION.search(read(os.path.join(ROOT, source)))]


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def commands_of_the_menu():
    return {name for source in ("app/MainMenu.cpp", "app/ImportSource.cpp")
            for name in ACTION.findall(read(os.path.join(ROOT, source)))}


def mutations():
    """Yields each mutation: the source, what is exchanged, the new text."""
    commands = commands_of_the_menu()
    for source in sources():
        text = read(os.path.join(ROOT, source))
        found = [match for match in ACTION.finditer(text) if match.group(1) in commands]
        for one, next_one in zip(found, found[1:]):
            if one.group(1) != next_one.group(1) and {one.group(1), next_one.group(1)} != EQUIVALENT_ACTIONS:
                yield (source, f"{one.group(1)} {next_one.group(1)}",
                       text[:one.start(1)] + next_one.group(1) + text[one.end(1):next_one.start(1)] + one.group(1)
                       + text[next_one.end(1):])


def build_and_test():
    """Returns whether the tests pass; raises an error if the mutation does not compile."""
    subprocess.run(["ninja", "-C", "build", "--quiet", "app_test"], cwd=COPY, check=True, stdout=subprocess.DEVNULL)
    result = subprocess.run(["build/tests/app/app_test", "--gtest_filter=MenuEffects.*"], cwd=COPY,
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return result.returncode == 0


def prepare():
    shutil.rmtree(COPY, ignore_errors=True)
    subprocess.run(["git", "clone", "--quiet", ROOT, COPY], check=True)
    subprocess.run(["cmake", "-S", ".", "-B", "build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DTABULON_DESKTOP=OFF", "-DTABULON_BENCH=OFF"],
                   cwd=COPY, check=True, stdout=subprocess.DEVNULL)
    if not build_and_test():
        sys.exit("The tests fail without a mutation.")


def main():
    chosen = list(mutations())
    if len(sys.argv) > 1:
        number = max(1, int(sys.argv[1]))
        chosen = [chosen[i * len(chosen) // number] for i in range(min(number, len(chosen)))]
    prepare()
    survivors = 0
    for source, names, mutated in chosen:
        path = os.path.join(COPY, source)
        original = read(path)
        write(path, mutated)
        passed = build_and_test()
        write(path, original)
        survivors += passed
        print(f"{'SURVIVED' if passed else 'found'}: {source}: {names}", flush=True)
    print(f"{len(chosen) - survivors} of {len(chosen)} mutations were found")
    sys.exit(1 if survivors else 0)


main()
