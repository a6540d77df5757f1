"""Proves that the checks of settings can fail."""

import unittest

from settings_table import (command_line_faults, documented, registered, registration_faults, settings, table_faults, test_faults,
                            text_faults)

SOURCE = """inline constexpr Setting<bool> kA{"A", "YES"};
inline constexpr Setting<double> kB{"B", "11.0"};
inline constexpr Setting<std::string_view> kD{"D"};
"""


FOLDERS = """
## Folders chosen by the user

| Key | Folder |
|---|---|
| `F` ° | a folder |
"""


def manual(*rows):
    return "# Settings\n| `X` | not | counted |\n" + FOLDERS + "\n## Keys\n\n| Key | At first | What |\n|---|---|---|\n" + "\n".join(rows)


class SettingsTableTest(unittest.TestCase):
    def faults_in(self, *rows):
        return list(table_faults(SOURCE, manual("| `D` | | d |", *rows)))

    def test_the_tables_are_read(self):
        self.assertEqual(registered(SOURCE), {"A": "YES", "B": "11.0"})
        self.assertEqual(settings(SOURCE), {"kA": ("A", "YES"), "kB": ("B", "11.0"), "kD": ("D", "")})
        self.assertEqual(documented(manual("| `A` °, `C` | YES | x |", "| `D` | | y |")), {"F": "", "A": "YES", "C": "YES", "D": ""})

    def test_the_same_is_no_fault(self):
        self.assertEqual(self.faults_in("| `A` | YES | x |", "| `B` ° | 11.0 | y |", "| `C` | | z |"), [])

    def test_differences_are_found(self):
        self.assertEqual(len(self.faults_in("| `A` | YES | x |")), 1)
        self.assertEqual(len(self.faults_in("| `A` | NO | x |", "| `B` | 11.0 | y |")), 1)
        self.assertEqual(len(self.faults_in("| `A` | YES | x |", "| `B` | | y |")), 1)
        self.assertEqual(len(self.faults_in("| `A`, `C` | YES | x |", "| `B` | 11.0 | y |")), 1)

    def test_a_setting_that_the_manual_leaves_out_is_found(self):
        self.assertEqual(len(list(table_faults(SOURCE, manual("| `A` | YES | x |", "| `B` | 11.0 | y |")))), 1)

    def test_a_folder_needs_a_row_in_either_table(self):
        folders = 'Setting<std::string_view> kF{"F"};\nSetting<std::string_view> kG{"G"};'
        self.assertEqual(list(table_faults(folders, manual())), ["docs/settings.md does not describe G"])
        self.assertEqual(list(table_faults(folders, manual("| `G` | | g |"))), [])

    def test_a_value_that_is_not_registered_is_found(self):
        self.assertEqual(list(registration_faults(SOURCE, "entry(settings::kA), entry(settings::kB)")), [])
        self.assertEqual(list(registration_faults(SOURCE, "entry(settings::kA)")),
                         ["base/RegisteredDefaults.cpp leaves out kB"])

    def test_the_command_line_accepts_the_keys_of_the_manual(self):
        rows = manual("| `A` | YES | x |", "| `B` | 11.0 | y |", "| `D` | | d |", "| `L` ° | | l |")
        listed = "    settings::kA.key, settings::kB.key,\n    settings::kD.key,\n    \"F\",\n"
        self.assertEqual(list(command_line_faults(SOURCE, rows, listed + '    "L",\n')), [])
        self.assertEqual(list(command_line_faults(SOURCE, rows, listed)), ["cli/SettingKeys.cpp leaves out L"])
        self.assertEqual(list(command_line_faults(SOURCE, rows, listed + '    "L",\n    "M",\n')),
                         ["docs/settings.md does not describe M of cli/SettingKeys.cpp"])

    def test_a_key_that_is_named_as_a_text_is_found(self):
        for call in ('defaults.boolForKey("A")', 'defaults->setDoubleForKey("B", 1)', 'defaults_.removeKey("A")',
                     'folders.resolve("F")', 'platform_.folders.store("F", path)'):
            self.assertEqual(len(list(text_faults({"app/File.cpp": call}))), 1, call)
        for call in ('state.stringForKey("A")', 'platform.state_.setBoolForKey("A", true)', "valueOf(defaults, settings::kA)",
                     "defaults.boolForKey(key)"):
            self.assertEqual(list(text_faults({"app/File.cpp": call})), [], call)

    def test_a_key_that_a_test_names_as_a_text_is_found(self):
        for call in ('base.defaults.setBoolForKey("A", true)', 'defaults.stringForKey("B")', 'next.removeKey("D")',
                     'folders.kept["D"] = path', 'folders.resolve("D")'):
            self.assertEqual(len(list(test_faults(SOURCE, {"tests/app/File.cpp": call}))), 1, call)
        for call in ('defaults.setStringForKey("k", "v")', 'archive.node({{"A", value}})', 'texts.text("A")',
                     "setValue(defaults, settings::kA, true)", 'tool.run({"--default", "A=YES"})'):
            self.assertEqual(list(test_faults(SOURCE, {"tests/app/File.cpp": call})), [], call)


if __name__ == "__main__":
    unittest.main()
