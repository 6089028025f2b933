#include <cerrno>
#include <csignal>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "automate/interpreter.h"

namespace {

constexpr std::string_view kHelp =
    "htr60-automate runs the operator interface of the HTR60 without a screen.\n"
    "It reads one JSON object a line on standard input and answers each with one on standard output.\n"
    "\n"
    "  --help     this text\n"
    "  --version  the version\n";

/// Says on standard error what does not work, with the reason of the last failed call where there is one.
int Failure(std::string_view what) {
  const int reason = errno;
  std::cerr << "htr60-automate: " << what;
  if (reason != 0) std::cerr << ": " << std::generic_category().message(reason);
  std::cerr << "\n";
  return 1;
}

/// Writes `text` so that nothing is left in a buffer, for a program that reads along; false where that fails.
bool Write(std::string_view text) {
  errno = 0;
  return static_cast<bool>(std::cout << text << std::flush);
}

int CannotWrite() { return Failure("standard output cannot be written"); }

int Run() {
  htr60::automation::Interpreter interpreter;
  std::string line;
  errno = 0;
  while (!interpreter.Ended() && std::getline(std::cin, line)) {
    if (!Write(interpreter.DoLine(line) + '\n')) return CannotWrite();
    errno = 0;
  }
  return std::cin.bad() ? Failure("standard input cannot be read") : 0;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef SIGPIPE
  // A reader that has gone is told as a failure of the write, not by a signal.
  std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef _WIN32
  // As text, a byte 1A would end the input and each line of the output end in two characters.
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  std::ios::sync_with_stdio(false);
  for (int i = 1; i < argc; ++i) {
    const std::string_view option = argv[i];
    if (option == "--help") return Write(kHelp) ? 0 : CannotWrite();
    if (option == "--version") return Write("htr60-automate " HTR60_VERSION "\n") ? 0 : CannotWrite();
    std::cerr << "htr60-automate: unknown option " << option << "\n";
    return 2;
  }
  return Run();
}
