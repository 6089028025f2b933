#include <iostream>
#include <string>
#include <string_view>

#include "automate/interpreter.h"

namespace {

constexpr std::string_view kHelp =
    "htr60-automate runs the operator interface of the HTR60 without a screen.\n"
    "It reads one JSON object a line on standard input and answers each with one on standard output.\n"
    "\n"
    "  --help     this text\n"
    "  --version  the version\n";

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view option = argv[i];
    if (option == "--help") {
      std::cout << kHelp;
      return 0;
    }
    if (option == "--version") {
      std::cout << "htr60-automate " HTR60_VERSION "\n";
      return 0;
    }
    std::cerr << "htr60-automate: unknown option " << option << "\n";
    return 2;
  }
  std::ios::sync_with_stdio(false);
  htr60::automation::Interpreter interpreter;
  std::string line;
  while (!interpreter.Ended() && std::getline(std::cin, line))
    std::cout << interpreter.DoLine(line) << '\n' << std::flush;
  return 0;
}
