#include "desktop/options.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace htr60::desktop {
namespace {

QString Write(const QTemporaryDir& folder, const QByteArray& text) {
  QFile file(folder.filePath(QStringLiteral("settings.json")));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text);
  return file.fileName();
}

Options Read(QStringList arguments) {
  arguments.prepend(QStringLiteral("htr60"));
  return ReadOptions(arguments);
}

std::string ErrorOf(const QStringList& arguments) {
  try {
    LoadSettings(Read(arguments));
  } catch (const OptionError& error) {
    return error.what();
  }
  return {};
}

TEST(Options, HelpAndVersionSaySomethingAndNothingElseDoes) {
  const QString help = Read({QStringLiteral("--help")}).say;
  for (const char* option : {"htr60", "--settings", "--preset", "--tour", "trim-course"}) {
    EXPECT_TRUE(help.contains(QLatin1String(option))) << option;
  }
  EXPECT_TRUE(Read({QStringLiteral("--version")}).say.startsWith(QLatin1String("htr60 ")));
  EXPECT_TRUE(Read({QStringLiteral("--tour"), QStringLiteral("pictures")}).say.isEmpty());
  EXPECT_EQ(Read({QStringLiteral("--tour"), QStringLiteral("pictures")}).tour, QStringLiteral("pictures"));
}

TEST(Options, AFileOfSettingsGoesOverThePreset) {
  const QTemporaryDir folder;
  const QString file = Write(folder, R"({"device":{"tag":"FIC-7"}})");
  const sim::Settings settings =
      LoadSettings(Read({QStringLiteral("--preset"), QStringLiteral("level"), QStringLiteral("--settings"), file}));
  EXPECT_EQ(settings.device.tag, "FIC-7");
  EXPECT_EQ(settings.device.primaryValueType, sim::kLevel);
  EXPECT_EQ(LoadSettings(Read({})).device.primaryValueType, sim::kPressure);
}

TEST(Options, WhatCannotBeTakenIsNamed) {
  const QTemporaryDir folder;
  const QString missing = folder.filePath(QStringLiteral("missing.json"));
  EXPECT_NE(ErrorOf({QStringLiteral("--settings"), missing}).find("missing.json"), std::string::npos);
  EXPECT_NE(ErrorOf({QStringLiteral("--preset"), QStringLiteral("nowhere")}).find("nowhere"), std::string::npos);
  EXPECT_NE(ErrorOf({QStringLiteral("--nonsense")}).find("nonsense"), std::string::npos);
  EXPECT_NE(ErrorOf({QStringLiteral("stray")}).find("stray"), std::string::npos);
  EXPECT_NE(ErrorOf({QStringLiteral("--tour"), QString()}), "");
  EXPECT_NE(ErrorOf({QStringLiteral("--settings"), Write(folder, "{")}), "");
  EXPECT_NE(ErrorOf({QStringLiteral("--settings"), Write(folder, R"({"device":{"tagg":"x"}})")}).find("tagg"),
            std::string::npos);
}

TEST(Options, AWrongNameComesWithThoseThatThereAre) {
  const struct {
    QStringList arguments;
    std::string sentence;
  } kCases[] = {
      {{QStringLiteral("--presets"), QStringLiteral("tank")},
       "There is no option '--presets'. There are: --settings, --preset, --tour, --colours, --help, --version."},
      {{QStringLiteral("--preset"), QStringLiteral("tnak")},
       "There are no ready-made settings 'tnak'. There are: pressure, flow, level, density, tank, brewery, "
       "trim-course, trouble."},
      {{QStringLiteral("--colours"), QStringLiteral("pink")},
       "There are no colours 'pink'. There are: light, dark, contrast."},
      {{QStringLiteral("--colours")}, "--colours needs a name: light, dark, contrast."},
      {{QStringLiteral("--tour")}, "--tour needs a folder for its pictures."},
      {{QStringLiteral("--settings")}, "--settings needs a file."},
      {{QStringLiteral("a.json")},
       "'a.json' stands there without an option; for a file of settings it is --settings FILE."},
  };
  for (const auto& one : kCases) EXPECT_EQ(ErrorOf(one.arguments), one.sentence);
  EXPECT_TRUE(ErrorOf({QStringLiteral("--preset")}).starts_with("--preset needs a name: pressure, flow"));
}

TEST(Options, AParameterThatThereIsNotIsSaidBeforeAWindowOpens) {
  const QTemporaryDir folder;
  const QString file = Write(folder, R"({"device":{"parameters":{"weight":"41"}}})");
  EXPECT_TRUE(ErrorOf({QStringLiteral("--settings"), file})
                  .ends_with("settings.json: device.parameters.weight: there is no parameter of that name"));
}

TEST(Options, NoFileOfSettingsEndsTheProgram) {
  const QTemporaryDir folder;
  const struct {
    const char* name;
    QByteArray text;
    const char* sentence;
  } kCases[] = {
      {"deep", QByteArray(200'000, '[') + QByteArray(200'000, ']'), "nested too deeply"},
      {"never closed", QByteArray(900'000, '['), "nested too deeply"},
      {"large", "{}" + QByteArray(1'000'000, ' '), "larger than 1 MB"},
      {"after the object", R"({"device":{}} {})", "no JSON"},
      {"NUL", QByteArray("{}\0 ", 4), "NUL"},
      {"empty", "", "empty"},
  };
  for (const auto& one : kCases) {
    const std::string error = ErrorOf({QStringLiteral("--settings"), Write(folder, one.text)});
    EXPECT_NE(error.find(one.sentence), std::string::npos) << one.name << ": " << error;
    EXPECT_NE(error.find("settings.json: "), std::string::npos) << one.name;
  }
  for (const QString& name : {QStringLiteral("/dev/zero"), folder.path()}) {
    const std::string error = ErrorOf({QStringLiteral("--settings"), name});
    EXPECT_NE(error.find("no regular file"), std::string::npos) << error;
  }
}

}  // namespace
}  // namespace htr60::desktop
