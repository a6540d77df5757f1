#include "platform/AppEvent.h"

namespace tabulon {
namespace {

std::string quoted(FourCharCode code) {
    return "'" + code.string() + "'";
}

std::string descriptionOfStep(const SpecifierStep& step) {
    if (!step.position)
        return "property " + quoted(step.code);
    const auto* const index = std::get_if<std::int32_t>(&*step.position);
    return "element " + quoted(step.code) + " " +
           (index ? std::to_string(*index) : quoted(std::get<FourCharCode>(*step.position)));
}

} // namespace

ObjectSpecifier element(FourCharCode elementClass, std::int32_t index) {
    return {{{.code = elementClass, .position = index}}};
}

ObjectSpecifier property(FourCharCode code, ObjectSpecifier container) {
    container.steps.push_back({.code = code});
    return container;
}

std::string descriptionOf(const ObjectSpecifier& specifier) {
    std::string text;
    for (auto step = specifier.steps.rbegin(); step != specifier.steps.rend(); ++step)
        text += (text.empty() ? "" : " of ") + descriptionOfStep(*step);
    return text;
}

} // namespace tabulon
