// tabulon-host: started by a browser for its extension, ends with it.
#include "bridge/BridgePlaces.h"
#include "host/Host.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace {

namespace fs = std::filesystem;

// Makes the folder with its parents, for this user alone. Returns false if that fails.
bool makePrivateFolder(const std::string& path) {
    std::error_code problem;
    fs::create_directories(path, problem);
    if (problem)
        return false;
    fs::permissions(path, fs::perms::owner_all, problem);
    return !problem;
}

int fail(const std::string& reason) {
    std::fprintf(stderr, "tabulon-host: %s\n", reason.c_str());
    return EXIT_FAILURE;
}

} // namespace

int main() {
    std::signal(SIGPIPE, SIG_IGN);
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (!runtime || *runtime != '/')
        return fail("There is no folder for runtime files.");
    const std::string folder = tabulon::bridgeFolder(runtime);
    if (!makePrivateFolder(folder))
        return fail("The folder of the socket cannot be made.");
    const tabulon::BridgeSocketName name{static_cast<unsigned>(getppid()), static_cast<unsigned>(getpid())};
    auto host = tabulon::Host::listen(folder + "/" + tabulon::fileNameOf(name));
    if (!host)
        return fail(host.error().message);
    host->run(STDIN_FILENO, STDOUT_FILENO);
    return EXIT_SUCCESS;
}
