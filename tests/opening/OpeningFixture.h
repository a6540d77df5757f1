// The services of opening in memory, and events as lines of text.
#pragma once

#include "opening/BrowserDelivery.h"
#include "platform/fake/FakePlatform.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tabulon::test {

/// Returns a value as text: a text in double quotes, a code in single ones, a number, or an object.
inline std::string shown(const EventValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return '"' + *text + '"';
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return std::to_string(*number);
    if (const auto* code = std::get_if<FourCharCode>(&value))
        return "'" + code->string() + "'";
    return descriptionOf(std::get<ObjectSpecifier>(value));
}

/// Returns an event as one line with all its members.
inline std::string shown(const AppEvent& event) {
    std::string line =
        event.application + ": " + event.eventClass.string() + "/" + event.eventIdentifier.string();
    if (event.directObject)
        line += " " + shown(*event.directObject);
    for (const auto& [code, value] : event.parameters)
        line += ", " + code.string() + "=" + shown(value);
    return line + (event.waitsForReply ? " waits" : " does not wait");
}

class OpeningTest : public testing::Test {
protected:
    OpeningServices services() {
        return {fake_.workspace, fake_.events, fake_.permission, fake_.alerts, fake_.base.services()};
    }
    std::vector<std::string> sent() const {
        std::vector<std::string> lines;
        for (const AppEvent& event : fake_.events.sent)
            lines.push_back(shown(event));
        return lines;
    }
    std::vector<std::string> alerts() const {
        std::vector<std::string> messages;
        for (const Alert& alert : fake_.alerts.shown)
            messages.push_back(alert.message);
        return messages;
    }

    FakePlatform fake_;
};

} // namespace tabulon::test
