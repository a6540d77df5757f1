"""The check of docs/settings.md finds what it is there to find."""

import unittest

from settings_table import documented, faults, registered

SOURCE = '{"A", "YES"},\n    {"B", "11.0"},\n'


def manual(*rows):
    return "# Settings\n| `X` | not | counted |\n\n## Keys\n\n| Key | At first | What |\n|---|---|---|\n" + "\n".join(rows)


class SettingsTableTest(unittest.TestCase):
    def faults_in(self, *rows):
        return list(faults(SOURCE, manual(*rows)))

    def test_the_tables_are_read(self):
        self.assertEqual(registered(SOURCE), {"A": "YES", "B": "11.0"})
        self.assertEqual(documented(manual("| `A` °, `C` | YES | x |", "| `D` | | y |")), {"A": "YES", "C": "YES", "D": ""})

    def test_the_same_is_no_fault(self):
        self.assertEqual(self.faults_in("| `A` | YES | x |", "| `B` ° | 11.0 | y |", "| `C` | | z |"), [])

    def test_differences_are_found(self):
        self.assertEqual(len(self.faults_in("| `A` | YES | x |")), 1)
        self.assertEqual(len(self.faults_in("| `A` | NO | x |", "| `B` | 11.0 | y |")), 1)
        self.assertEqual(len(self.faults_in("| `A` | YES | x |", "| `B` | | y |")), 1)
        self.assertEqual(len(self.faults_in("| `A`, `C` | YES | x |", "| `B` | 11.0 | y |")), 1)


if __name__ == "__main__":
    unittest.main()
