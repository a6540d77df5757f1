// Any bytes as requests to the running program over the message bus: calls with any number of texts as
// addresses, tokens and startup identifiers. The files of the user are not changed, and there are no more
// windows and alerts than addresses and calls.
#include "app/AppDelegate.h"
#include "model/ArchiveWriter.h"
#include "platform/fake/FakePlatform.h"
#include "platform/fake/FakeSingleInstance.h"
#include "tests/app/FakeProgramHost.h"
#include "tests/app/MemoryWindowMaker.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tabulon;

constexpr char kBetweenCalls = '\x1E';
constexpr char kBetweenTexts = '\x1F';

void require(bool condition) {
    if (!condition)
        std::abort();
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return pieces;
        text.remove_prefix(end + 1);
    }
}

// Returns the request of a call. The first byte modulo 3 is its kind. The bit 0x20 of the byte says whether
// the main loop runs before the next call.
LaunchRequest requestOf(std::string_view call) {
    const unsigned kind = call.empty() ? 0 : static_cast<unsigned char>(call[0]);
    std::vector<std::string> texts = split(call.substr(std::min<std::size_t>(call.size(), 1)), kBetweenTexts);
    LaunchRequest request{.kind = static_cast<LaunchRequest::Kind>(kind % 3)};
    request.activationToken = std::move(texts.front());
    if (texts.size() > 1)
        request.startupId = std::move(texts[1]);
    if (texts.size() > 2 && request.kind == LaunchRequest::Kind::Open)
        request.uris.assign(texts.begin() + 2, texts.end());
    return request;
}

struct Program : FakePlatform {
    Program() {
        const Ref<Bookmark> master = Bookmark::init(base.now());
        master->makeParent();
        files.files["/home/a.tbln"] = writeDocumentArchive(*master);
        files.files["/home/damaged.tbln"] = writeDocumentArchive(*master).substr(0, 80);
        files.files["/home/a.xbel"] = "<xbel><bookmark href=\"http://a/\"><title>a</title></bookmark></xbel>";
        files.files["/home/a.html"] = "<a href=\"http://a/\">a</a>";
        files.files["/home/a.url"] = "[InternetShortcut]\nURL=http://a/\n";
        before = files.files;
    }

    bool hasTheFilesOfBefore() const {
        for (const auto& [path, bytes] : before)
            if (const auto now = files.files.find(path); now == files.files.end() || !(now->second == bytes))
                return false;
        return true;
    }

    MemoryWindowMaker windows;
    FakeSingleInstance instance;
    FakeProgramHost host;
    AppDelegate app{platform(), windows, instance, host, "1"};
    decltype(files.files) before;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    GTEST_FLAG_SET(break_on_failure, true); // for the expectations of the windows in memory
    Program program;
    std::size_t uris = 0;
    const std::vector<std::string> calls = split({reinterpret_cast<const char*>(data), size}, kBetweenCalls);
    for (const std::string& call : calls) {
        LaunchRequest request = requestOf(call);
        uris += request.uris.size();
        program.instance.requestArrives(std::move(request));
        if (!call.empty() && (call[0] & 0x20) != 0)
            program.timers.advance(0);
    }
    program.timers.advance(10);
    require(program.hasTheFilesOfBefore());
    require(program.app.documentController().documents().size() <= uris + calls.size());
    require(program.alerts.shown.size() <= uris);
    return 0;
}
