#!/usr/bin/env python3
"""Shows that the tests of the menu commands find every wrong action, key and tag of the menu.

Each mutation changes one source, in the tables of the menu or where a class registers its actions:
- exchange: two neighbouring names of actions,
- redirect: an action gets the name of its neighbour,
- keys: two neighbouring items exchange their keys,
- tags: two items that share an action exchange their tags.
The tests are built with it and must fail. The last commit is copied to build/mutations first, so the tree stays as it is.
"""

import argparse
import os
import random
import re
import shutil
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
COPY = os.path.join(ROOT, "build", "mutations")
SEED = 13
MENU = "app/MainMenu.cpp"
# In this table a name only connects a menu title with its own row, so that an exchange of two names has no
# effect. A name that two rows have is a fault.
SOURCES_WITHOUT_EXCHANGE = {"app/ImportSource.cpp"}
# These items show the same alert.
EQUIVALENT_ACTIONS = {"importFirefox:", "importTor:"}
ACTION = re.compile(r'"([a-zA-Z]+:)"')
ROW_WITH_KEY = re.compile(r'\{"(\w+)", "\w+:", ("[^"]+"(?:, \w+)?)\}')
LABEL_NAMES = re.compile(r"kLabelNameKeys = \{(.*?)\};", re.DOTALL)
SORT_ROWS = re.compile(r"kSort = std::to_array<Row>\(\{(.*?)\}\);", re.DOTALL)
# The ends of the functions that set tags.
LABEL_END = "        menu.items.push_back(std::move(item));\n    }\n"
SORT_END = "        item.tag = SortCommands::kSortDescendingTag;\n"


def read(path):
    with open(os.path.join(COPY, path), encoding="utf-8") as file:
        return file.read()


def write(path, text):
    with open(os.path.join(COPY, path), "w", encoding="utf-8") as file:
        file.write(text)


def commands_of_the_menu():
    return {name for source in (MENU, "app/ImportSource.cpp") for name in ACTION.findall(read(source))}


def actions_by_source():
    """Yields each source with actions of the menu: its path, its text, the matches of the names."""
    listed = subprocess.run(["git", "ls-files", "app/*.cpp", "window/*.cpp"], cwd=COPY, check=True,
                            capture_output=True, text=True).stdout.split()
    commands = commands_of_the_menu()
    for source in listed:
        text = read(source)
        found = [match for match in ACTION.finditer(text) if match.group(1) in commands]
        if len(found) > 1:
            yield source, text, found


def with_texts(text, one, other, of_one, of_other):
    """Returns the text with other contents in two spans, of which the first ends before the second."""
    return text[:one[0]] + of_one + text[one[1]:other[0]] + of_other + text[other[1]:]


def exchanges():
    for source, text, found in actions_by_source():
        for one, other in zip(found, found[1:]):
            names = one.group(1), other.group(1)
            if source not in SOURCES_WITHOUT_EXCHANGE and names[0] != names[1] and set(names) != EQUIVALENT_ACTIONS:
                yield (source, f"exchange {names[0]} {names[1]}",
                       with_texts(text, one.span(1), other.span(1), names[1], names[0]))


def redirections():
    for source, text, found in actions_by_source():
        for one, neighbour in list(zip(found, found[1:])) + [(found[-1], found[-2])]:
            names = one.group(1), neighbour.group(1)
            if names[0] != names[1] and not (source == MENU and set(names) == EQUIVALENT_ACTIONS):
                yield (source, f"redirect {names[0]} to {names[1]}",
                       text[:one.start(1)] + names[1] + text[one.end(1):])


def exchanged_keys():
    text = read(MENU)
    found = list(ROW_WITH_KEY.finditer(text))
    for one, other in zip(found, found[1:]):
        yield (MENU, f"keys of {one.group(1)} {other.group(1)}",
               with_texts(text, one.span(2), other.span(2), other.group(2), one.group(2)))


def exchanged_tags():
    text = read(MENU)
    assert text.count(LABEL_END) == 1 and text.count(SORT_END) == 1, "the menus are made in another way"
    labels = LABEL_NAMES.search(read("window/LabelNames.h")).group(1).count('"') // 2
    for label in range(labels - 1):
        yield (MENU, f"tags of labels {label} {label + 1}",
               text.replace(LABEL_END, LABEL_END + f"    std::swap(menu.items.at({label}).tag, menu.items.at({label + 1}).tag);\n"))
    for row, title in enumerate(re.findall(r'\{"(\w+)"', SORT_ROWS.search(text).group(1))):
        yield (MENU, f"tags of {title}, ascending and descending",
               text.replace(SORT_END, SORT_END + f"    std::swap(menu.items.at({row}).tag, descending.items.at({row}).tag);\n"))


def build_and_test():
    """Returns whether the tests pass; raises an error if the mutation does not compile."""
    subprocess.run(["ninja", "-C", "build", "--quiet", "app_test"], cwd=COPY, check=True, stdout=subprocess.DEVNULL)
    # The first failure ends the program.
    result = subprocess.run(["build/tests/app/app_test", "--gtest_filter=MenuEffects.*", "--gtest_throw_on_failure"], cwd=COPY,
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return result.returncode == 0


def copy_the_tree():
    shutil.rmtree(COPY, ignore_errors=True)
    subprocess.run(["git", "clone", "--quiet", ROOT, COPY], check=True)


def build_without_a_mutation():
    subprocess.run(["cmake", "-S", ".", "-B", "build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DTABULON_DESKTOP=OFF", "-DTABULON_BENCH=OFF"],
                   cwd=COPY, check=True, stdout=subprocess.DEVNULL)
    if not build_and_test():
        sys.exit("The tests fail without a mutation.")


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sample", type=int, metavar="N", help="try N mutations, the same ones in every run")
    parser.add_argument("--list", action="store_true", help="print the mutations and try none")
    return parser.parse_args()


def main():
    options = arguments()
    copy_the_tree()
    chosen = [*exchanges(), *redirections(), *exchanged_keys(), *exchanged_tags()]
    if options.sample is not None:
        chosen = random.Random(SEED).sample(chosen, max(1, min(options.sample, len(chosen))))
    if options.list:
        for source, change, _ in chosen:
            print(f"{source}: {change}")
        return
    build_without_a_mutation()
    survivors = 0
    for source, change, mutated in chosen:
        original = read(source)
        write(source, mutated)
        passed = build_and_test()
        write(source, original)
        survivors += passed
        print(f"{'SURVIVED' if passed else 'found'}: {source}: {change}", flush=True)
    print(f"{len(chosen) - survivors} of {len(chosen)} mutations were found")
    sys.exit(1 if survivors else 0)


main()
