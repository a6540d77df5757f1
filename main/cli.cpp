// The entry of the command-line tool, with the services of the system.
#include "cli/CommandLine.h"
#include "main/OpeningDesktop.h"
#include "platform/linux/FileStore.h"
#include "platform/linux/Process.h"
#include "platform/linux/SystemServices.h"
#include "platform/linux/XdgFolders.h"

#include <cstdio>

int main(int argc, char** argv) {
    tabulon::prepareProcess();
    tabulon::PosixFileStore files(tabulon::SpecialFiles::Used);
    tabulon::SystemClock clock;
    tabulon::SilentLog log; // standard error is for failures
    const std::unique_ptr<tabulon::cli::OpeningDesktop> desktop = tabulon::makeOpeningDesktop();
    const tabulon::cli::Environment environment{
        files,
        clock,
        log,
        tabulon::environmentLocale(),
        tabulon::stateFolder(),
        tabulon::readStandardInput,
        tabulon::writeStandardOutput,
        // Unlike a log line, an error message may wait for its reader.
        [](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); },
        desktop.get(),
    };
    return tabulon::cli::run({argv + 1, argv + argc}, environment);
}
