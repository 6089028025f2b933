#include "desktop/options.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <nlohmann/json.hpp>

#include "desktop/figure/tones.h"
#include "desktop/qt_text.h"
#include "simulator/manager/json_text.h"

namespace htr60::desktop {
namespace {

QString PresetList() {
  QStringList names;
  for (const std::string_view name : sim::PresetNames()) names << ToQt(name);
  return names.join(QStringLiteral(", "));
}

[[noreturn]] void Fail(const QString& sentence) { throw OptionError(ToUtf8(sentence)); }

}  // namespace

Options ReadOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Operator interface of the HTR60 transmitter, with a simulated one."));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this and end."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Print the version and end."));
  const QCommandLineOption settings(QStringLiteral("settings"),
                                    QStringLiteral("Settings of the simulated transmitter, a JSON file."),
                                    QStringLiteral("FILE"));
  const QCommandLineOption preset(QStringLiteral("preset"),
                                  QStringLiteral("Ready-made settings: %1.").arg(PresetList()), QStringLiteral("NAME"));
  const QCommandLineOption tour(QStringLiteral("tour"),
                                QStringLiteral("Go through the pages by a script, print each step and leave a picture "
                                               "of each page in DIR. Needs no display."),
                                QStringLiteral("DIR"));
  const QCommandLineOption colours(
      QStringLiteral("colours"),
      QStringLiteral("Colours in place of the system's: %1.").arg(PaletteNames().join(QStringLiteral(", "))),
      QStringLiteral("NAME"));
  parser.addOptions({help, version, settings, preset, tour, colours});
  if (!parser.parse(arguments)) Fail(parser.errorText());
  if (!parser.positionalArguments().isEmpty()) {
    Fail(QStringLiteral("Unexpected argument '%1'.").arg(parser.positionalArguments().constFirst()));
  }
  Options options;
  options.preset = parser.value(preset);
  options.settings = parser.value(settings);
  options.tour = parser.value(tour);
  options.colours = parser.value(colours);
  if (parser.isSet(colours) && !PaletteNames().contains(options.colours)) {
    Fail(QStringLiteral("There are no colours '%1'.").arg(options.colours));
  }
  if (parser.isSet(tour) && options.tour.isEmpty()) Fail(QStringLiteral("The tour needs a folder."));
  if (parser.isSet(help)) {
    // Without an application object the parser does not know the name of the program.
    options.say = parser.helpText().replace(QStringLiteral("<executable_name>"), QStringLiteral("htr60"));
  } else if (parser.isSet(version)) {
    options.say = QStringLiteral("htr60 %1\n").arg(QStringLiteral(HTR60_VERSION));
  }
  return options;
}

sim::Settings LoadSettings(const Options& options) {
  try {
    nlohmann::json object = nlohmann::json::object();
    if (!options.preset.isEmpty()) object = sim::PresetObject(ToUtf8(options.preset));
    if (!options.settings.isEmpty()) {
      const auto file = QFileInfo(options.settings).filesystemFilePath();
      object = sim::MergeSettings(std::move(object), sim::ReadSettingsFile(file));
    }
    return sim::Parse(object);
  } catch (const sim::SettingsError& error) {
    const QString where = options.settings.isEmpty() ? QStringLiteral("--preset ") + options.preset : options.settings;
    Fail(QStringLiteral("%1: %2").arg(where, QString::fromUtf8(error.what())));
  }
}

}  // namespace htr60::desktop
