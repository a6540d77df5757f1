// Options, relative paths and URIs of the command line.
#include "app/LaunchArguments.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using Kind = LaunchRequest::Kind;
using Purpose = LaunchArguments::Purpose;
using namespace std::string_literals;

std::vector<std::string> urisOf(const std::vector<std::string>& arguments) {
    return parseLaunchArguments(arguments, "/home/ada").request.uris;
}

TEST(LaunchArguments, nothingAsksForNothing) {
    const LaunchArguments arguments = parseLaunchArguments({}, "/home/ada");
    EXPECT_EQ(arguments.purpose, Purpose::Run);
    EXPECT_EQ(arguments.request.kind, Kind::Activate);
    EXPECT_EQ(arguments.theme, "system");
}

TEST(LaunchArguments, filesBecomeAbsoluteURIs) {
    EXPECT_EQ(urisOf({"a.tbln", "/b.tbln", "./c d.tbln", "x//y/./z"}),
              (std::vector<std::string>{"file:///home/ada/a.tbln", "file:///b.tbln",
                                        "file:///home/ada/c%20d.tbln", "file:///home/ada/x/y/z"}));
    EXPECT_EQ(urisOf({"link/../a"}), (std::vector<std::string>{"file:///home/ada/link/../a"}))
        << "what .. leaves may be a link";
    EXPECT_EQ(urisOf({"."}), (std::vector<std::string>{"file:///home/ada"}));
    EXPECT_EQ(urisOf({"/"}), (std::vector<std::string>{"file:///"}));
    EXPECT_EQ(urisOf({"\xE9%"}), (std::vector<std::string>{"file:///home/ada/%E9%25"}));
    EXPECT_EQ(parseLaunchArguments({"a"}, "").request.uris, (std::vector<std::string>{"file:///a"}));
}

TEST(LaunchArguments, urisStayAsTheyAre) {
    EXPECT_EQ(urisOf({"file:///tmp/a%20b", "http://example.org/x", "FILE:/tmp/a"}),
              (std::vector<std::string>{"file:///tmp/a%20b", "http://example.org/x", "FILE:/tmp/a"}));
    EXPECT_EQ(urisOf({"notes: a.tbln"}), (std::vector<std::string>{"file:///home/ada/notes:%20a.tbln"}));
}

TEST(LaunchArguments, optionsAreReadUpToTheDashes) {
    const LaunchArguments arguments = parseLaunchArguments({"--theme", "dark", "--", "--version"}, "/");
    EXPECT_EQ(arguments.purpose, Purpose::Run);
    EXPECT_EQ(arguments.theme, "dark");
    EXPECT_EQ(arguments.request.uris, (std::vector<std::string>{"file:///--version"}));
    EXPECT_EQ(parseLaunchArguments({"--theme=light"}, "/").theme, "light");
    EXPECT_EQ(parseLaunchArguments({"x", "--version"}, "/").purpose, Purpose::ShowVersion);
    EXPECT_EQ(parseLaunchArguments({"--help"}, "/").purpose, Purpose::ShowHelp);
    EXPECT_EQ(parseLaunchArguments({"-h"}, "/").purpose, Purpose::ShowHelp);
    EXPECT_EQ(parseLaunchArguments({"--dbus-service"}, "/").purpose, Purpose::Serve);
    EXPECT_EQ(parseLaunchArguments({"--new-document"}, "/").request.kind, Kind::NewDocument);
    EXPECT_EQ(parseLaunchArguments({"--new-document", "a"}, "/").request.kind, Kind::Open);
}

TEST(LaunchArguments, wrongOnesAreNamed) {
    EXPECT_EQ(parseLaunchArguments({"--frob"}, "/").purpose, Purpose::Complain);
    EXPECT_EQ(parseLaunchArguments({"--frob"}, "/").problem, "There is no option “--frob”.");
    EXPECT_EQ(parseLaunchArguments({"--theme", "blue"}, "/").problem, "There is no theme “blue”.");
    EXPECT_EQ(parseLaunchArguments({"--theme=blue"}, "/").problem, "There is no theme “blue”.");
    EXPECT_EQ(parseLaunchArguments({"--themes"}, "/").problem, "There is no option “--themes”.");
    EXPECT_EQ(parseLaunchArguments({"--theme"}, "/").problem, "The name of a theme has to follow “--theme”.");
    EXPECT_EQ(parseLaunchArguments({"-\xFF"}, "/").problem, "There is no option “-\uFFFD”.");
}

} // namespace
} // namespace tabulon
