// Texts of several lines in a field of one line.
#include "ui/LineField.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

class LineFieldTest : public testing::Test {
protected:
    QString withInserted(const QString& text, const QString& inserted) {
        field.showText(text);
        field.insert(inserted);
        return field.text();
    }

    LineField field{nullptr};
};

TEST_F(LineFieldTest, lineEndsThatComeAreSpacesAndDroppedAtTheEnd) {
    EXPECT_EQ(withInserted("", "two\r\nlines"), "two lines");
    EXPECT_EQ(withInserted("a ", "b\nc\rd\r\n\n"), "a b c d");
    EXPECT_EQ(withInserted("a", "\n"), "a");
    EXPECT_EQ(withInserted("a ", "b "), "a b ");
}

TEST_F(LineFieldTest, aTextWithLinesKeepsThem) {
    EXPECT_EQ(withInserted("two\r\nlines", "!"), "two\r\nlines!");
    EXPECT_EQ(withInserted("a\n", "b\nc"), "a\nb\nc");
    EXPECT_EQ(withInserted("again one", "\nline"), "again one line");
}

TEST_F(LineFieldTest, whatIsInsertedModifiesTheFieldWhateverBecomesOfIt) {
    field.showText("a");
    EXPECT_FALSE(field.isModified());
    QString edited;
    QObject::connect(&field, &QLineEdit::textEdited, &field, [&](const QString& text) { edited = text; });
    field.insert("b\r\nc");
    EXPECT_TRUE(field.isModified());
    EXPECT_EQ(edited, "ab c");
    field.showText("d");
    EXPECT_FALSE(field.isModified());
}

} // namespace
} // namespace tabulon
