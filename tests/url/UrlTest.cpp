// Tests the URL parser: the parts of an address, and its serialization, which is the one of browsers.
#include "url/Url.h"

#include "tests/ProcessorTime.h"

#include <gtest/gtest.h>

namespace tabulon::url {
namespace {

/// Returns the serialized address, or "no address" if `input` is not one. Requires: `base` is empty or an
/// address.
std::string text(std::string_view input, std::string_view base = {}, std::string_view encoding = {}) {
    const std::optional<Url> from = base.empty() ? std::nullopt : parse(base);
    EXPECT_TRUE(base.empty() || from) << base;
    const std::optional<Url> url = parse(input, from ? &*from : nullptr, encoding);
    return url ? url->text() : "no address";
}

TEST(Url, schemesAndHostsAreWrittenInLowerCaseAndAHostHasAPath) {
    EXPECT_EQ(text("HTTP://WWW.Example.ORG"), "http://www.example.org/");
    EXPECT_EQ(text("Mailto:A.B@C"), "mailto:A.B@C");
    EXPECT_EQ(text("foo://HOST"), "foo://HOST") << "only of schemes that are known";
}

TEST(Url, thePartsAreTakenApart) {
    const auto url = parse("https://u:p@h:8080/a/b?q#f");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->scheme, "https");
    EXPECT_EQ(url->username, "u");
    EXPECT_EQ(url->password, "p");
    EXPECT_EQ(url->host, "h");
    EXPECT_EQ(url->port, 8080);
    EXPECT_EQ(url->path, "/a/b");
    EXPECT_EQ(url->query, "q");
    EXPECT_EQ(url->fragment, "f");
    EXPECT_FALSE(url->isOpaque);
    EXPECT_TRUE(parse("mailto:a@b")->isOpaque);
    EXPECT_EQ(parse("mailto:a@b")->host, std::nullopt);
}

TEST(Url, aSchemesOwnPortIsLeftOut) {
    EXPECT_EQ(text("http://h:80/"), "http://h/");
    EXPECT_EQ(text("https://h:443"), "https://h/");
    EXPECT_EQ(text("ftp://h:0021"), "ftp://h/");
    EXPECT_EQ(text("http://h:443"), "http://h:443/");
    EXPECT_EQ(text("http://h:"), "http://h/");
    EXPECT_EQ(text("http://h:65536"), "no address");
    EXPECT_EQ(text("http://h:8x"), "no address");
}

TEST(Url, whiteSpaceAroundAndLineEndsWithinDoNotCount) {
    EXPECT_EQ(text(" \t\x01http://h/ \n"), "http://h/");
    EXPECT_EQ(text("ht\ntp://h/a\tb\r"), "http://h/ab");
}

TEST(Url, backslashesAreSlashesInAddressesOfTheWeb) {
    EXPECT_EQ(text("http:\\\\h\\a\\..\\b"), "http://h/b");
    EXPECT_EQ(text("foo://h\\a"), "no address");
    EXPECT_EQ(text("http:h"), "http://h/");
    EXPECT_EQ(text("http:////h"), "http://h/");
}

TEST(Url, dotSegmentsGoAlsoWhenTheyAreEscaped) {
    EXPECT_EQ(text("http://h/a/./b/../c"), "http://h/a/c");
    EXPECT_EQ(text("http://h/a/%2e%2E/c/%2e"), "http://h/c/");
    EXPECT_EQ(text("http://h/../../x"), "http://h/x");
    EXPECT_EQ(text("http://h/a/.."), "http://h/");
    EXPECT_EQ(text("foo:/a/../b"), "foo:/b");
    EXPECT_EQ(text("foo:/..//x"), "foo:/.//x") << "not a host";
}

TEST(Url, eachPartEscapesItsCharacters) {
    EXPECT_EQ(text("http://h/a b\"<>`{}^|'%zz%41é"), "http://h/a%20b%22%3C%3E%60%7B%7D%5E%7C'%zz%41%C3%A9");
    EXPECT_EQ(text("http://h/?a b\"<>`{}'é"), "http://h/?a%20b%22%3C%3E`{}%27%C3%A9");
    EXPECT_EQ(text("http://h/#a b\"<>`{}'é"), "http://h/#a%20b%22%3C%3E%60{}'%C3%A9");
    EXPECT_EQ(text("http://a b:c|d@h/"), "http://a%20b:c%7Cd@h/");
    EXPECT_EQ(text("http://a@b@h/"), "http://a%40b@h/");
    EXPECT_EQ(text("mailto:a b@c?s=x y"), "mailto:a b@c?s=x%20y");
    EXPECT_EQ(text("javascript:alert('ä <b>')"), "javascript:alert('%C3%A4 <b>')");
    EXPECT_EQ(text("data:text/html,<b> x</b>"), "data:text/html,<b> x</b>");
}

TEST(Url, hostsInOtherScriptsAreWrittenForTheDns) {
    EXPECT_EQ(text("http://bücher.example/"), "http://xn--bcher-kva.example/");
    EXPECT_EQ(text("http://faß.de"), "http://xn--fa-hia.de/") << "not \"fass\"";
    EXPECT_EQ(text("http://例え。テスト"), "http://xn--r8jz45g.xn--zckzah/");
    EXPECT_EQ(text("http://ＡＢＣ.com"), "http://abc.com/");
    EXPECT_EQ(text("http://b%C3%BCcher.example"), "http://xn--bcher-kva.example/");
    EXPECT_EQ(text("http://a\u00adb"), "http://ab/") << "a soft hyphen";
    EXPECT_EQ(text("http://a_b.c"), "http://a_b.c/");
}

TEST(Url, whatIsNoHostIsNoAddress) {
    for (const char* wrong :
         {"http://", "http://a b", "http://a<b", "http://a%00b", "http://a^b", "http://[x]", "http://a%zz",
          "http://:80", "http://u@", "http://[::1", "http://x\u200d", "foo://a b"})
        EXPECT_EQ(text(wrong), "no address") << wrong;
    EXPECT_EQ(text("foo://"), "foo://");
    EXPECT_EQ(text("file://"), "file:///");
}

TEST(Url, hostsThatAreNumbersAreWrittenInOneWay) {
    EXPECT_EQ(text("http://0x7f.1"), "http://127.0.0.1/");
    EXPECT_EQ(text("http://192.168.257"), "http://192.168.1.1/");
    EXPECT_EQ(text("http://4294967295"), "http://255.255.255.255/");
    EXPECT_EQ(text("http://010.0.0.1."), "http://8.0.0.1/");
    for (const char* wrong :
         {"http://4294967296", "http://256.1.1.1", "http://1.2.3.4.5", "http://09.1", "http://x.0x"})
        EXPECT_EQ(text(wrong), "no address") << wrong;
    EXPECT_EQ(text("http://1.2.3.x"), "http://1.2.3.x/");
}

TEST(Url, longNumbersOfHostsAreShortened) {
    EXPECT_EQ(text("http://[0:0:0:0:0:0:0:1]"), "http://[::1]/");
    EXPECT_EQ(text("http://[1:0:0:2:0:0:0:3]"), "http://[1:0:0:2::3]/");
    EXPECT_EQ(text("http://[::FFFF:1.2.3.4]:80"), "http://[::ffff:102:304]/");
    EXPECT_EQ(text("http://[1:2:3:4:5:6:7::]"), "http://[1:2:3:4:5:6:7:0]/");
    EXPECT_EQ(text("http://[::]"), "http://[::]/");
    for (const char* wrong :
         {"http://[1:2]", "http://[1::2::3]", "http://[:1]", "http://[1:]", "http://[12345::]",
          "http://[1:2:3:4:5:6:7:8::]", "http://[::1.2.3]", "http://[::1.2.3.04]",
          "http://[1:2:3:4:5:6:7:1.2.3.4]", "http://[1:2:3:4::5:6:7:8]"})
        EXPECT_EQ(text(wrong), "no address") << wrong;
}

TEST(Url, relativeAddressesCountFromTheBase) {
    const char* base = "http://u@h:81/a/b?q#f";
    EXPECT_EQ(text("c", base), "http://u@h:81/a/c");
    EXPECT_EQ(text("../c", base), "http://u@h:81/c");
    EXPECT_EQ(text("/c", base), "http://u@h:81/c");
    EXPECT_EQ(text("//g/c", base), "http://g/c");
    EXPECT_EQ(text("?x", base), "http://u@h:81/a/b?x");
    EXPECT_EQ(text("#x", base), "http://u@h:81/a/b?q#x");
    EXPECT_EQ(text("", base), "http://u@h:81/a/b?q");
    EXPECT_EQ(text("http:c", base), "http://u@h:81/a/c");
    EXPECT_EQ(text("https:c", base), "https://c/");
    EXPECT_EQ(text("x:c", base), "x:c");
}

TEST(Url, onlyAFragmentCountsFromAnOpaqueBase) {
    EXPECT_EQ(text("#x", "about:blank"), "about:blank#x");
    for (const char* relative : {"x", "/x", "?x", "", "//h"})
        EXPECT_EQ(text(relative, "about:blank"), "no address") << relative;
    EXPECT_EQ(text("x"), "no address");
}

TEST(Url, filesHaveDrivesAndNoHostOfThisMachine) {
    EXPECT_EQ(text("file:///etc/../x"), "file:///x");
    EXPECT_EQ(text("file:x"), "file:///x");
    EXPECT_EQ(text("file://localhost/x"), "file:///x");
    EXPECT_EQ(text("file://HOST/x"), "file://host/x");
    EXPECT_EQ(text("file:///C|/a/../.."), "file:///C:/");
    EXPECT_EQ(text("file://C:/x"), "file:///C:/x");
    EXPECT_EQ(text("/y", "file:///C:/x"), "file:///C:/y");
    EXPECT_EQ(text("D:/y", "http://h/C:/x"), "d:/y");
    EXPECT_EQ(text("file:D:/y", "file:///C:/x"), "file:///D:/y");
    EXPECT_EQ(text("..", "file:///C:/x/y"), "file:///C:/");
}

TEST(Url, queriesOfTheWebAreWrittenInTheEncodingOfThePage) {
    EXPECT_EQ(text("http://h/é?é#é", {}, "windows-1252"), "http://h/%C3%A9?%E9#%C3%A9");
    EXPECT_EQ(text("http://h/?日x", {}, "windows-1252"), "http://h/?%26%2326085%3Bx");
    EXPECT_EQ(text("http://h/?日", {}, "windows-31j"), "http://h/?%93%FA");
    EXPECT_EQ(text("foo://h/?é", {}, "windows-1252"), "foo://h/?%C3%A9");
    EXPECT_EQ(text("ws://h/?é", {}, "windows-1252"), "ws://h/?%C3%A9");
}

TEST(Url, longAddressesTakeLinearTime) {
    const ProcessorTime time;
    for (const char* part :
         {"/a", "/..", "%2e/", "é", "?", "@", ":", "xn--", ".", "0.", "[", "\\", "\t", "ü."}) {
        std::string input = "http://h";
        while (input.size() < 2'000'000)
            input += part;
        parse(input);
    }
    EXPECT_LT(time.seconds(), 60);
}

} // namespace
} // namespace tabulon::url
