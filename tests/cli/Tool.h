// The command-line tool in memory: files, streams and the exit status of one run.
#pragma once

#include "cli/CommandLine.h"
#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/MemoryFileStore.h"

#include <string>
#include <vector>

namespace tabulon::test {

class Tool {
public:
    int run(const std::vector<std::string>& arguments) {
        out.clear();
        error.clear();
        return cli::run(arguments, {files, fake.clock, fake.log, "en_US", "/state",
                                    [this]() -> Result<std::string> { return in; },
                                    [this](std::string_view text) -> Result<void> {
                                        if (outputBroken)
                                            return failure("Cannot write the standard output: Broken pipe.");
                                        out += text;
                                        return {};
                                    },
                                    [this](std::string_view text) { error += text; }});
    }

    MemoryFileStore files;
    FakeBaseServices fake;
    std::string in;
    std::string out;
    std::string error;
    bool outputBroken = false;
};

} // namespace tabulon::test
