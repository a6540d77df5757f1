"""Proves that the check of texts can fail."""

import unittest

from text_keys import faults, texts, used

TABLE = '{"Save", "Save"},\n    {"%d links", "%d links"},\n    {"%d links:one", "%d link"},\n    {"Gone",\n     "It is gone."},\n'
SAVE = 'texts.text("Save");\n'
LINKS = 'texts.counted("%d links", count, digits);\n'
GONE = 'fileErrorAlert(platform, "Gone", path);\n'
ALERTS = "void fileErrorAlert(const Platform& platform, std::string_view key, const std::string& path);\n"


def source(*lines, path="app/File.cpp"):
    return {"window/SharedAlerts.h": ALERTS, path: "".join(lines)}


class TextKeysTest(unittest.TestCase):
    def faults_in(self, *lines, path="app/File.cpp"):
        return list(faults(TABLE, source(*lines, path=path)))

    def keys_of(self, text, path="app/File.cpp"):
        return set(used(source(text, path=path)))

    def test_the_table_is_read(self):
        self.assertEqual(texts(TABLE), {"Save", "%d links", "%d links:one", "Gone"})

    def test_a_use_of_every_text_is_no_fault(self):
        self.assertEqual(self.faults_in(SAVE, LINKS, GONE), [])

    def test_a_text_that_nothing_uses_is_found(self):
        self.assertEqual(len(self.faults_in(SAVE, LINKS)), 1)
        self.assertEqual(len(self.faults_in(SAVE, GONE)), 2)
        self.assertEqual(len(self.faults_in(SAVE, LINKS, "// ", GONE)), 1)

    def test_a_literal_elsewhere_is_no_use(self):
        for line in ('log("Gone");', 'const std::string kind = "Gone";', 'if (name == "Gone")\n    return;', 'return "Gone";',
                     'texts.format("Save", "Gone");', 'fmt::format("Gone", 1);', 'const Row row{.name = "Gone"};',
                     'constexpr std::string_view kGone = "Gone";\nlog(kGone);', '// texts.text("Gone");\n',
                     'const auto gone = {std::pair("Gone", 1)};', 'std::string nameOf(int n) {\n    return "Gone";\n}\n'):
            self.assertEqual(self.faults_in(SAVE, LINKS, line), ['base/EnglishTexts.cpp: nothing uses the text of "Gone"'], line)

    def test_keys_in_constants_are_used_where_the_constant_is(self):
        for line in ('constexpr std::string_view kGone = "Gone";\ntexts.text(kGone);',
                     'constexpr const char* kMeanings[] = {"Gone", "Save"};\ntexts.text(kMeanings[status]);',
                     'constexpr std::string_view kGone = "Gone";\nRow row{.titleKey = kGone, .action = "a:"};'):
            self.assertEqual(self.faults_in(SAVE, LINKS, line), [], line)

    def test_keys_that_a_variable_passes_on_are_found(self):
        for line in ('for (const auto& [key, count] :\n {std::pair("Gone", a.b(1)), std::pair("Save", 2)})\n    texts.text(key);',
                     'for (const auto& [flag, key] : {std::pair(kFlag, "Gone")})\n    texts.text(key);',
                     'std::string_view keyOf(Kind kind) {\n    return kind == A ? "Gone" : "Save";\n}\n',
                     'texts.format(i + 1 == count ? "Gone" : "Save", name);',
                     'Row row{.text = "Gone"};\nRow other{.text = "fixed"};\ntexts.text(row.text);'):
            self.assertEqual(self.faults_in(SAVE, LINKS, line), [], line)

    def test_a_key_without_a_text_is_found(self):
        for line in ('texts.text("Sav");', 'texts.format("Sav", name);', 'fileErrorAlert(platform, "Sav", path);',
                     'x = texts.text(isNew ? "Save" : "Sav");', 'const auto key = isNew ? "Save" : "Sav";'):
            found = self.faults_in(SAVE, LINKS, GONE, line)
            self.assertEqual(len(found), 1, line)
            self.assertIn("Sav", found[0])

    def test_what_is_no_key_is_left_alone(self):
        for line in ('fmt::format("{}", name);', 'log("Sav");', 'fileErrorAlert(platform, "Gone", "Sav");',
                     'texts.format("Save", "Sav");', "c = '\"'; // texts.text(\"Sav\")\n", 'defaults.boolForKey("Sav");'):
            self.assertEqual(self.faults_in(SAVE, LINKS, GONE, line), [], line)

    def test_keys_of_tables_are_found(self):
        row = "struct Row {\n    int place = 0;\n    std::string_view titleKey = {};\n    std::string_view action;\n};\n"
        self.assertEqual(self.keys_of(row + 'constexpr auto k = std::to_array<Row>({{1, "A", "a:"}, kNone, {2, "B"}});'), {"A", "B"})
        self.assertEqual(self.keys_of('Row row{.titleKey = "A", .action = "a:"};'), {"A"})
        self.assertEqual(self.keys_of('constexpr auto kLabelNameKeys = {"A", "B"};'), {"A", "B"})

    def test_keys_of_lambdas_are_found_in_their_file(self):
        self.assertEqual(self.keys_of('const auto add = [&](int n, const char* key) {};\nadd(1, "A");'), {"A"})
        self.assertEqual(self.keys_of('add(1, "A");'), set())

    def test_keys_with_a_suffix_are_used_with_their_stem(self):
        table = '{"Gone", "x"},\n{"GoneText", "x"},\n{"GoneMore", "x"},\n'
        text = 'const auto key = "Gone";\ntexts.text(key);\ntexts.text(key + "Text");\n'
        self.assertEqual(list(faults(table, source(text))), ['base/EnglishTexts.cpp: nothing uses the text of "GoneMore"'])

    def test_keys_of_other_things_are_left_alone(self):
        text = 'Result<void> read(std::string_view key);\nread("title");\n'
        self.assertEqual(self.keys_of(text, path="formats/import/A.cpp"), set())
        self.assertEqual(self.keys_of(text + 'texts.text("A");', path="formats/import/A.cpp"), {"A"})


if __name__ == "__main__":
    unittest.main()
