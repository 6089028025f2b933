#pragma once

#include <QString>
#include <QStringList>
#include <stdexcept>

#include "simulator/manager/settings.h"

namespace htr60::desktop {

/// A command line that cannot be taken; `what()` is a sentence for the operator.
class OptionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Options {
  QString preset{};    ///< name of ready-made settings, empty: the defaults
  QString settings{};  ///< file whose members go over the preset's, empty: none
  QString tour{};      ///< folder for the pictures of the tour, empty: no tour
  QString colours{};   ///< one of `PaletteNames`, empty: the system's
  QString say{};       ///< the answer to --help or --version: print it and end; empty: none
};

/// Takes the command line; the first argument is the program. Throws `OptionError`.
Options ReadOptions(const QStringList& arguments);

/// Settings of the simulated transmitter. Throws `OptionError` for a file that cannot be read or taken and for an
/// unknown preset.
sim::Settings LoadSettings(const Options& options);

}  // namespace htr60::desktop
