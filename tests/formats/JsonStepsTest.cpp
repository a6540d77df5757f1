// Tests the JSON reader: it accepts the same files as another parser, and its steps are in the order of the
// file.
#include "formats/import/JsonSteps.h"

#include "tests/formats/ReferenceChromium.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

bool isSound(std::string_view json) {
    JsonSteps steps(json);
    for (;;) {
        const JsonSteps::Step step = steps.next();
        if (step == JsonSteps::Step::Finished)
            return true;
        if (step == JsonSteps::Step::Failed)
            return false;
    }
}

// The two may differ in numbers that are too large for a number type, in escaped surrogates, and in files
// whose top value is neither an array nor an object. Such files are skipped.
TEST(JsonSteps, damagedFilesAreSoundExactlyWhereADocumentTreeCanBeMadeOfThem) {
    std::mt19937 random(8259);
    int sound = 0;
    int broken = 0;
    for (int i = 0; i < 300; ++i) {
        const std::string json = test::written(test::randomBookmarks(random), random);
        for (int change = 0; change < 100; ++change) {
            std::string damaged = json;
            constexpr std::string_view kBytes = "{}[]:,\"\\ 01-.etnu\n\xC3\xA9/x";
            for (auto count = 1 + random() % 2; count > 0; --count) {
                const std::size_t at = random() % damaged.size();
                if (random() % 3 == 0)
                    damaged.erase(at, 1 + random() % 3);
                else if (random() % 2)
                    damaged.insert(at, 1, kBytes[random() % kBytes.size()]);
                else
                    damaged[at] = kBytes[random() % kBytes.size()];
                if (damaged.empty())
                    damaged = "{}";
            }
            simdjson::dom::parser parser;
            const auto error = parser.parse(damaged).error();
            if (error == simdjson::NUMBER_ERROR || damaged.find("\\ud") != std::string::npos ||
                damaged.find_first_of("{[") != damaged.find_first_not_of(" \t\r\n"))
                continue;
            ASSERT_EQ(isSound(damaged), error == simdjson::SUCCESS) << damaged;
            ++(error ? broken : sound);
        }
    }
    EXPECT_GT(sound, 1000);
    EXPECT_GT(broken, 1000);
}

TEST(JsonSteps, stepsAndKeysComeInTheOrderOfTheFile) {
    JsonSteps steps(R"( {"a" : "x\n", "b":[1, "y" ], "\u0063":{ "d":null}} )");
    using Step = JsonSteps::Step;
    struct Expected {
        Step step;
        std::string_view key;
        std::string_view string;
    };
    for (const Expected& expected : {Expected{Step::Object, "", ""},
                                     {Step::String, "a", "x\n"},
                                     {Step::Array, "b", ""},
                                     {Step::Other, "", ""},
                                     {Step::String, "", "y"},
                                     {Step::End, "", ""},
                                     {Step::Object, "c", ""},
                                     {Step::Other, "d", ""},
                                     {Step::End, "", ""},
                                     {Step::End, "", ""}}) {
        const Step step = steps.next();
        ASSERT_EQ(step, expected.step);
        if (step == Step::End)
            continue;
        EXPECT_EQ(steps.key(), expected.key);
        EXPECT_EQ(step == Step::String ? steps.string() : "", expected.string);
    }
    EXPECT_EQ(steps.next(), Step::Finished);
    EXPECT_EQ(steps.next(), Step::Finished);
}

TEST(JsonSteps, afterAFailureEveryStepFails) {
    JsonSteps steps("[1,]");
    EXPECT_EQ(steps.next(), JsonSteps::Step::Array);
    EXPECT_EQ(steps.next(), JsonSteps::Step::Other);
    EXPECT_EQ(steps.next(), JsonSteps::Step::Failed);
    EXPECT_EQ(steps.next(), JsonSteps::Step::Failed);
}

} // namespace
} // namespace tabulon
