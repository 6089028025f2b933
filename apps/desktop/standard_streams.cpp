#include "desktop/standard_streams.h"

#include <QtGlobal>
#include <iostream>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#endif

namespace htr60::desktop {

void SecureStandardStreams() {
#ifdef Q_OS_UNIX
  std::signal(SIGPIPE, SIG_IGN);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    // The lowest free number is this one; it can be read from and not written to, as a closed one.
    if (open("/dev/null", O_RDONLY) != stream) return;
  }
#endif
}

void Complain(std::string_view sentence) { std::cerr << "htr60: " << sentence << std::endl; }

bool Print(std::string_view text) {
  std::cout << text << std::flush;
  return static_cast<bool>(std::cout);
}

}  // namespace htr60::desktop
