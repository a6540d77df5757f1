#include "app/HostManifest.h"

#include "bridge/BridgePlaces.h"

#include <fmt/format.h>
#include <simdjson.h>

#include <algorithm>

namespace tabulon {
namespace {

namespace json = simdjson::dom;

std::string allowedKey(ManifestForm form) {
    return form == ManifestForm::Firefox ? "allowed_extensions" : "allowed_origins";
}

std::string allowedValue(ManifestForm form) {
    return form == ManifestForm::Firefox ? std::string(kFirefoxExtension)
                                         : fmt::format("chrome-extension://{}/", kChromiumExtension);
}

// Returns the text between the quotes of a JSON string.
std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20)
            out += fmt::format("\\u{:04x}", byte);
        else if (c == '"' || c == '\\')
            (out += '\\') += c;
        else
            out += c;
    }
    return out;
}

bool isText(const json::object& object, std::string_view member, std::string_view expected) {
    std::string_view text;
    return object[member].get(text) == simdjson::SUCCESS && text == expected;
}

bool allows(const json::object& object, ManifestForm form) {
    json::array allowed;
    if (object[allowedKey(form)].get(allowed) != simdjson::SUCCESS)
        return false;
    const std::string expected = allowedValue(form);
    return std::ranges::any_of(allowed, [&](const json::element& each) {
        std::string_view text;
        return each.get(text) == simdjson::SUCCESS && text == expected;
    });
}

} // namespace

std::string hostManifestFileName() {
    return std::string(kBridgeHostName) + ".json";
}

Result<std::string> hostManifest(ManifestForm form, std::string_view host) {
    if (!simdjson::validate_utf8(host))
        return failure("Browsers cannot start a program whose path is not UTF-8.");
    return fmt::format("{{\n"
                       "  \"name\": \"{}\",\n"
                       "  \"description\": \"Connects this browser with Tabulon\",\n"
                       "  \"path\": \"{}\",\n"
                       "  \"type\": \"stdio\",\n"
                       "  \"{}\": [\"{}\"]\n"
                       "}}\n",
                       kBridgeHostName, escaped(host), allowedKey(form), allowedValue(form));
}

ManifestKind manifestKind(std::string_view bytes, ManifestForm form, std::string_view host) {
    json::parser parser;
    json::object object;
    if (parser.parse(simdjson::padded_string(bytes)).get(object) ||
        !isText(object, "name", kBridgeHostName) || !allows(object, form))
        return ManifestKind::Foreign;
    return isText(object, "path", host) && isText(object, "type", "stdio") ? ManifestKind::Equal
                                                                           : ManifestKind::Other;
}

} // namespace tabulon
