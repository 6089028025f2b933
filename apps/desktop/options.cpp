#include "desktop/options.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <nlohmann/json.hpp>

#include "desktop/figure/tones.h"
#include "desktop/qt_text.h"
#include "simulator/device/parameters.h"
#include "simulator/manager/json_text.h"

namespace htr60::desktop {
namespace {

constexpr const char* kTourNeeds = "--tour needs a folder for its pictures.";
constexpr const char* kSettingsNeed = "--settings needs a file.";

QStringList Presets() {
  QStringList names;
  for (const std::string_view name : sim::PresetNames()) names << ToQt(name);
  return names;
}

QString Listed(const QStringList& names) { return names.join(QStringLiteral(", ")); }

[[noreturn]] void Fail(const QString& sentence) { throw OptionError(ToUtf8(sentence)); }

[[noreturn]] void FailName(const QString& what, const QString& name, const QStringList& known) {
  Fail(QStringLiteral("There %1 '%2'. There are: %3.").arg(what, name, Listed(known)));
}

// What the parser says of an option that it does not know, or of one without its value, says nothing of those there
// are.
[[noreturn]] void FailParsing(const QCommandLineParser& parser, const QList<QCommandLineOption>& options,
                              const QString& last) {
  const auto written = [](const QString& name) { return QString(name.size() > 1 ? 2 : 1, u'-') + name; };
  if (!parser.unknownOptionNames().isEmpty()) {
    QStringList known;
    for (const QCommandLineOption& option : options) known << written(option.names().constLast());
    FailName(QStringLiteral("is no option"), written(parser.unknownOptionNames().constFirst()), known);
  }
  if (last == QStringLiteral("--preset")) Fail(QStringLiteral("--preset needs a name: %1.").arg(Listed(Presets())));
  if (last == QStringLiteral("--colours")) {
    Fail(QStringLiteral("--colours needs a name: %1.").arg(Listed(PaletteNames())));
  }
  if (last == QStringLiteral("--tour")) Fail(QLatin1String(kTourNeeds));
  if (last == QStringLiteral("--settings")) Fail(QLatin1String(kSettingsNeed));
  Fail(parser.errorText());
}

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
                                  QStringLiteral("Ready-made settings: %1.").arg(Listed(Presets())),
                                  QStringLiteral("NAME"));
  const QCommandLineOption tour(QStringLiteral("tour"),
                                QStringLiteral("Go through the pages by a script, print each step and leave a picture "
                                               "of each page in DIR. Needs no display."),
                                QStringLiteral("DIR"));
  const QCommandLineOption colours(QStringLiteral("colours"),
                                   QStringLiteral("Colours in place of the system's: %1.").arg(Listed(PaletteNames())),
                                   QStringLiteral("NAME"));
  const QList<QCommandLineOption> all{settings, preset, tour, colours, help, version};
  parser.addOptions(all);
  if (!parser.parse(arguments)) FailParsing(parser, all, arguments.constLast());
  if (!parser.positionalArguments().isEmpty()) {
    Fail(QStringLiteral("'%1' stands there without an option; for a file of settings it is --settings FILE.")
             .arg(parser.positionalArguments().constFirst()));
  }
  Options options;
  options.preset = parser.value(preset);
  options.settings = parser.value(settings);
  options.tour = parser.value(tour);
  options.colours = parser.value(colours);
  if (parser.isSet(colours) && !PaletteNames().contains(options.colours)) {
    FailName(QStringLiteral("are no colours"), options.colours, PaletteNames());
  }
  if (parser.isSet(preset) && !Presets().contains(options.preset)) {
    FailName(QStringLiteral("are no ready-made settings"), options.preset, Presets());
  }
  if (parser.isSet(tour) && options.tour.isEmpty()) {
    Fail(QLatin1String(kTourNeeds));
  }
  if (parser.isSet(settings) && options.settings.isEmpty()) Fail(QLatin1String(kSettingsNeed));
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
    sim::Settings settings = sim::Parse(object);
    sim::StartParameters(settings.device);  // what is wrong with these comes out here alone
    return settings;
  } catch (const sim::SettingsError& error) {
    const QString where = options.settings.isEmpty() ? QStringLiteral("--preset ") + options.preset : options.settings;
    Fail(QStringLiteral("%1: %2").arg(where, QString::fromUtf8(error.what())));
  }
}

}  // namespace htr60::desktop
