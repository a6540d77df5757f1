"""`compare` as a diff driver of a real git, and against random edits whose differences are known."""

import json
import os
import random
import shutil
import subprocess
import unittest

import cli
import trees

DRIVER = 'f() { "%s" compare "$2" "$5"; }; f'


class GitDiff(cli.TestCase):
    @unittest.skipUnless(shutil.which("git"), "git is not installed")
    def test_git_shows_what_changed_in_a_document(self):
        folder = self.path("repository")
        os.mkdir(folder)

        def git(*arguments):
            environment = {**os.environ, "GIT_CONFIG_GLOBAL": "/dev/null", "GIT_CONFIG_SYSTEM": "/dev/null"}
            return subprocess.run(["git", "-C", folder, *arguments], env=environment, capture_output=True, check=True,
                                  timeout=60).stdout.decode()

        def save(*links):
            self.make(trees.master(list(links)), os.path.join("repository", "mine.tbln"))
            os.remove(os.path.join(folder, "mine.tbln.json"))

        git("init", "-q")
        git("config", "user.name", "test")
        git("config", "user.email", "test@example.org")
        git("config", "diff.tbln.command", DRIVER % os.path.abspath(cli.TOOL))
        with open(os.path.join(folder, ".gitattributes"), "w", encoding="utf-8") as attributes:
            attributes.write("*.tbln diff=tbln\n")
        save(trees.link("a", "https://a/"), trees.link("b", "https://b/"))
        git("add", ".")
        self.assertIn("added\t0\ta  <https://a/>\nadded\t1\tb  <https://b/>\n", git("diff", "--cached"))
        git("commit", "-qm", "first")
        self.assertEqual(git("diff"), "")
        save(trees.link("b", "https://b/"), trees.link("c", "https://c/"))
        self.assertEqual(git("diff"), "removed\t0\ta  <https://a/>\nadded\t1\tc  <https://c/>\n")
        os.remove(os.path.join(folder, "mine.tbln"))
        self.assertIn("removed\t1\tb  <https://b/>\n", git("diff"))


class RandomEdits(cli.TestCase):
    """Random edits. Every link has an address of its own, so that the differences of an edit are known."""

    def test_what_was_done_is_what_is_listed(self):
        for seed in range(30):
            dice = random.Random(seed)
            links = [trees.link(f"name {n}", f"https://example.org/{n}") for n in range(dice.randrange(1, 40))]
            before = trees.master([trees.folder("one", links[::2]), trees.folder("two", links[1::2])])
            after = json.loads(json.dumps(before))
            expected = set()
            for folder in after["children"]:
                for link in [link for link in folder["children"] if "moved" not in link]:
                    match dice.randrange(8):
                        case 0:
                            folder["children"].remove(link)
                            expected.add(("removed", link["url"]))
                        case 1:
                            link["name"] += " new"
                            expected.add(("renamed", link["url"]))
                        case 2:
                            link["tags"] = "tag"
                            expected.add(("edited", link["url"]))
                        case 3:
                            folder["children"].remove(link)
                            other = after["children"][1 if folder is after["children"][0] else 0]
                            other["children"].append(dict(link, moved=True))
                            expected.add(("moved", link["url"]))
            for folder in after["children"]:
                for link in folder["children"]:
                    link.pop("moved", None)
            url = "https://example.org/new"
            after["children"][0]["children"].insert(0, trees.link("new", url))
            expected.add(("added", url))
            old, new = self.make(before, "old.tbln"), self.make(after, "new.tbln")
            lines = [json.loads(line) for line in cli.done("compare", "--json", old, new).splitlines()]
            found = {(line["change"], line["url"]) for line in lines if line["url"]}
            with self.subTest(seed=seed):
                self.assertEqual(found, expected)
                back = {(line["change"], line["url"]) for line in map(json.loads, cli.done(
                    "compare", "--json", new, old).splitlines()) if line["url"]}
                turned = {"added": "removed", "removed": "added"}
                self.assertEqual({(turned.get(change, change), address) for change, address in back}, found)


if __name__ == "__main__":
    unittest.main()
