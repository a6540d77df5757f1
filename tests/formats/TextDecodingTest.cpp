// Tests the detection of the encoding of text files.
#include "formats/import/TextDecoding.h"

#include "formats/import/EncodingNames.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

std::string html(std::string_view bytes) {
    return decodeText(bytes, TextKind::Html).text;
}
std::string declared(std::string_view page) {
    const DeclaredEncoding found = declaredEncoding(page);
    return found.found ? found.converter : "nothing";
}

TEST(TextDecoding, theByteOrderMarkComesFirst) {
    EXPECT_EQ(html("\xEF\xBB\xBF<meta charset=koi8-r>\xC3\xA9"), "<meta charset=koi8-r>é");
    EXPECT_EQ(html(std::string_view("\xFF\xFEx\0\xE9\0", 6)), "xé");
    EXPECT_EQ(html(std::string_view("\xFE\xFF\0x\0\xE9", 6)), "xé");
    EXPECT_EQ(html(std::string_view("\xFF\xFE\x3D\xD8\x00\xDE", 6)), "😀");
    EXPECT_EQ(html(std::string_view("\xFF\xFEx\0y", 5)), "x\uFFFD") << "half a character at the end";
}

TEST(TextDecoding, whatThePageSaysComesNext) {
    const DecodedText decoded = decodeText("<meta charset=latin1>\x93\xE9\x94", TextKind::Html);
    EXPECT_EQ(decoded.text, "<meta charset=latin1>“é”") << "latin1 stands for windows-1252";
    EXPECT_EQ(decoded.encoding, "windows-1252");
    EXPECT_EQ(html("<meta charset=utf-8>\xE9"), "<meta charset=utf-8>\uFFFD");
    EXPECT_EQ(html("<meta charset=koi8-r>\xC3\xA9"), "<meta charset=koi8-r>ц╘") << "though it might be UTF-8";
    EXPECT_EQ(decodeText("<meta charset=koi8-r>\xC3\xA9", TextKind::Plain).text, "<meta charset=koi8-r>é");
}

TEST(TextDecoding, utf8IsKnownByItsForm) {
    EXPECT_EQ(html("<p>é日😀"), "<p>é日😀");
    EXPECT_EQ(decodeText("é", TextKind::Html).encoding, "");
    EXPECT_EQ(html(""), "");
    EXPECT_EQ(html(std::string_view("a\0b", 3)), std::string_view("a\0b", 3));
}

TEST(TextDecoding, otherTextsAreKnownByTheirLook) {
    const std::string japanese =
        "\x93\xFA\x96\x7B\x8C\xEA\x82\xCC\x83\x79\x81\x5B\x83\x57\x82\xC5\x82\xB7\x81\x42";
    EXPECT_EQ(decodeText(japanese + japanese, TextKind::Plain).text.substr(0, 9), "日本語");
    const std::string russian =
        "\xCF\xF0\xE8\xE2\xE5\xF2, \xFD\xF2\xEE \xE1\xEE\xEB\xFC\xF8\xEE\xE9 \xF2\xE5\xEA\xF1\xF2";
    EXPECT_TRUE(decodeText(russian, TextKind::Plain).text.starts_with("Привет"));
    EXPECT_EQ(decodeText("Caf\xE9 \x80", TextKind::Plain).text, "Café €");
}

TEST(TextDecoding, everyFileCanBeDecoded) {
    std::string all;
    for (int c = 0; c < 256; ++c)
        all += static_cast<char>(c);
    for (const char* label :
         {"utf-8", "shift_jis", "euc-jp", "iso-2022-jp", "gbk", "gb18030", "big5", "euc-kr", "koi8-u",
          "macintosh", "windows-874", "x-mac-cyrillic", "ibm866", "iso-8859-10", "windows-1258"}) {
        const auto converter = converterForLabel(label);
        ASSERT_TRUE(converter) << label;
        const std::string page = "<meta charset=" + std::string(label) + ">";
        EXPECT_TRUE(html(page + "x" + all).starts_with(page + "x")) << label;
    }
    EXPECT_FALSE(html(all).empty());
}

TEST(TextDecoding, longTextsAreDecodedWhole) {
    std::string bytes = "<meta charset=shift_jis>";
    std::string expected = bytes;
    for (int i = 0; i < 100'000; ++i) {
        bytes += "\x93\xFAx";
        expected += "日x";
    }
    EXPECT_EQ(html(bytes), expected);
}

TEST(DeclaredEncoding, isFoundWhereBrowsersLookForIt) {
    EXPECT_EQ(declared("<meta charset=KOI8-R>"), "KOI8-R");
    EXPECT_EQ(declared("<META/CHARSET = ' koi8-r ' >"), "KOI8-R");
    EXPECT_EQ(declared("<meta http-equiv=Content-Type content='text/html; charset = \"koi8-r\"'>"), "KOI8-R");
    EXPECT_EQ(declared("<meta content='text/html;charset=koi8-r;x' http-equiv=content-type>"), "KOI8-R");
    EXPECT_EQ(declared("<meta content='text/html;charset=koi8-r'>"), "nothing") << "only with http-equiv";
    EXPECT_EQ(declared("<p title='<meta charset=big5>'><meta charset=koi8-r>"), "KOI8-R");
    EXPECT_EQ(declared("<!-- <meta charset=big5> --><meta charset=koi8-r>"), "KOI8-R");
    EXPECT_EQ(declared("<? <meta charset=big5><meta charset=koi8-r>"), "KOI8-R");
    EXPECT_EQ(declared("<meta charset=nosuch><meta charset=koi8-r>"), "KOI8-R");
    EXPECT_EQ(declared("<metacharset=koi8-r>"), "nothing");
    EXPECT_EQ(declared("<meta charset=koi8-r"), "KOI8-R") << "as far as it goes";
    EXPECT_EQ(declared("<meta charset=utf-16>"), "") << "UTF-8: it could not be read otherwise";
    EXPECT_EQ(declared(std::string(1010, ' ') + "<meta charset=koi8-r>"), "nothing") << "too far behind";
    EXPECT_EQ(declared("<"), "nothing");
    EXPECT_EQ(declared("<!--"), "nothing");
    EXPECT_EQ(declared("<meta charset='"), "nothing");
    EXPECT_EQ(declared("<meta http-equiv=content-type content=charset>"), "nothing");
}

TEST(EncodingNames, manyNamesStandForMoreThanTheySay) {
    EXPECT_EQ(converterForLabel("ISO-8859-1"), "windows-1252");
    EXPECT_EQ(converterForLabel(" ascii\n"), "windows-1252");
    EXPECT_EQ(converterForLabel("iso-8859-9"), "windows-1254");
    EXPECT_EQ(converterForLabel("gb2312"), "gb18030");
    EXPECT_EQ(converterForLabel("utf8"), "");
    EXPECT_EQ(converterForLabel("utf-7"), std::nullopt);
    EXPECT_EQ(converterForLabel("latin"), std::nullopt);
    EXPECT_EQ(converterForLabel("utf8 866"), std::nullopt);
    EXPECT_EQ(converterForLabel(""), std::nullopt);
}

} // namespace
} // namespace tabulon
