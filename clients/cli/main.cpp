#include <cstdio>
#include <exception>
#include <iostream>

#include "clients/cli/CommandLine.h"

namespace {

/// Whether all of the text has arrived: a full disk shows itself at the latest when the stream is closed.
bool writeToStandardOutput(const std::string& text) {
  const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  const bool isFlushed = std::fflush(stdout) == 0;
  return std::fclose(stdout) == 0 && isWritten && isFlushed;
}

kvx::ExitStatus run(int argc, const char* const* argv) {
  const kvx::Outcome outcome = kvx::runCommandLine(argc, argv, std::cerr);
  if (writeToStandardOutput(outcome.output)) return outcome.status;
  std::cerr << "kvx: standard output cannot be written; is the disk full?\n";
  return kvx::ExitStatus::Machine;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return static_cast<int>(run(argc, argv));
  } catch (const std::exception& failure) {
    std::cerr << "kvx: " << failure.what() << '\n';
    return static_cast<int>(kvx::ExitStatus::Machine);
  }
}
