// Standard error in every state, and signals that writes cause: none of them ends the process.
#include "platform/linux/Process.h"

#include "platform/linux/SystemServices.h"
#include "tests/platform/FileStoreFixture.h"

#include <fcntl.h>
#include <sys/resource.h>

#include <cerrno>
#include <chrono>
#include <csignal>

namespace tabulon {
namespace {

class ProcessTest : public FileStoreTest {};

void logMuch() {
    StandardErrorLog log;
    for (int i = 0; i < 300; ++i)
        log.log(std::string(1000, 'x'));
}

TEST_F(ProcessTest, aLineGoesToStandardError) {
    EXPECT_EQ(statusOfChild([this] {
                  ::dup2(::open(path("log").c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
                  StandardErrorLog().log("one line");
                  StandardErrorLog().log(std::string(10000, 'x'));
                  return 0;
              }),
              0);
    EXPECT_EQ(files.readFile(path("log")).value(),
              "tabulon: one line\ntabulon: " + std::string(10000, 'x') + "\n");
}

TEST_F(ProcessTest, theLogNeverEndsTheProgram) {
    EXPECT_EQ(statusOfChild([] {
                  prepareProcess();
                  ::close(STDERR_FILENO);
                  logMuch();
                  return 0;
              }),
              0)
        << "closed";
    EXPECT_EQ(statusOfChild([] {
                  prepareProcess();
                  ::dup2(::open("/dev/full", O_WRONLY), STDERR_FILENO);
                  logMuch();
                  return 0;
              }),
              0)
        << "a full disk";
    EXPECT_EQ(statusOfChild([] {
                  prepareProcess();
                  int ends[2];
                  if (::pipe(ends) != 0)
                      return 1;
                  ::dup2(ends[1], STDERR_FILENO);
                  ::close(ends[0]);
                  logMuch();
                  return 0;
              }),
              0)
        << "a pipe without a reader";
}

TEST_F(ProcessTest, aReaderThatDoesNotReadIsNotWaitedFor) {
    EXPECT_EQ(statusOfChild([] {
                  prepareProcess();
                  ::alarm(20); // ends the process
                  int ends[2];
                  if (::pipe(ends) != 0)
                      return 1;
                  ::dup2(ends[1], STDERR_FILENO);
                  logMuch();
                  return 0;
              }),
              0);
}

TEST_F(ProcessTest, closedStreamsAreNotTakenForDocuments) {
    EXPECT_EQ(statusOfChild([this] {
                  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
                      ::close(stream);
                  prepareProcess();
                  const int document = ::open(path("document").c_str(), O_WRONLY | O_CREAT, 0600);
                  StandardErrorLog().log("not into the document");
                  if (document <= STDERR_FILENO || writeStandardOutput("x") || readStandardInput())
                      return 1;
                  return 0;
              }),
              0)
        << "reading and writing fail";
    EXPECT_EQ(files.readFile(path("document")).value(), "");
}

TEST_F(ProcessTest, aLimitOnTheSizeOfFilesIsAnErrorOfTheWrite) {
    EXPECT_EQ(statusOfChild([this] {
                  prepareProcess();
                  const rlimit limit{1000, 1000};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  const auto written = files.writeFileAtomically(path("f"), std::string(5000, 'x'));
                  return !written && written.error().code == EFBIG ? 0 : 1;
              }),
              0);
}

TEST_F(ProcessTest, programsThatAreStartedHaveTheSystemsOwnBehaviour) {
    EXPECT_EQ(statusOfChild([] {
                  prepareProcess();
                  return ::system("kill -PIPE $$; exit 3") >> 8 == 3 ? 1 : 0;
              }),
              0);
}

} // namespace
} // namespace tabulon
