// The command lines with addresses: what may not become an option, and how many fit.
#include "platform/linux/AddressCommands.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using testing::ElementsAre;

TEST(AddressCommands, AnAddressIsNoOption) {
    EXPECT_TRUE(canBeArgument("https://a/"));
    EXPECT_TRUE(canBeArgument("https://a/-b?c=--d"));
    EXPECT_TRUE(canBeArgument("http://ä/"));
    EXPECT_FALSE(canBeArgument("-"));
    EXPECT_FALSE(canBeArgument("--no-sandbox"));
    EXPECT_FALSE(canBeArgument("-P https://a/"));
    EXPECT_FALSE(canBeArgument(""));
}

TEST(AddressCommands, AnAddressHasNoControlCharacters) {
    for (const char c : {'\0', '\n', '\r', '\t', '\x1b', '\x7f'})
        EXPECT_FALSE(canBeArgument(std::string("https://a/") + c + "b")) << static_cast<int>(c);
}

TEST(AddressCommands, AnAddressIsNotTooLongForTheSystem) {
    EXPECT_TRUE(canBeArgument("https://a/" + std::string(90'000, 'x')));
    EXPECT_FALSE(canBeArgument("https://a/" + std::string(100'000, 'x')));
}

TEST(AddressCommands, AllAddressesAreInOneCommandIfTheyFit) {
    const std::vector<std::string> addresses = {"a", "b", "c"};
    EXPECT_THAT(commandsWithAddresses({"web", "--new-window"}, addresses, 1000),
                ElementsAre(ElementsAre("web", "--new-window", "a", "b", "c")));
    EXPECT_THAT(commandsWithAddresses({"web"}, {}, 1000), testing::IsEmpty());
}

TEST(AddressCommands, PortionsAreBelowTheLimit) {
    std::vector<std::string> addresses;
    for (int number = 0; number < 1000; ++number)
        addresses.push_back("https://example.org/" + std::to_string(number));
    constexpr std::size_t kLimit = 2000;
    const auto commands = commandsWithAddresses({"web"}, addresses, kLimit);
    std::vector<std::string> passed;
    for (const std::vector<std::string>& command : commands) {
        std::size_t bytes = 0;
        for (const std::string& word : command)
            bytes += word.size() + 1 + sizeof(char*);
        EXPECT_LE(bytes, kLimit);
        EXPECT_TRUE(bytes > kLimit - 40 || &command == &commands.back()) << bytes; // no other would fit
        EXPECT_EQ(command.front(), "web");
        passed.insert(passed.end(), command.begin() + 1, command.end());
    }
    EXPECT_EQ(passed, addresses);
}

TEST(AddressCommands, AnAddressAboveTheLimitHasACommandOfItsOwn) {
    const std::vector<std::string> addresses = {"first", "second"};
    EXPECT_THAT(commandsWithAddresses({"web"}, addresses, 0),
                ElementsAre(ElementsAre("web", "first"), ElementsAre("web", "second")));
}

} // namespace
} // namespace tabulon
