#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "desktop/application.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  htr60::desktop::Application application(argc, argv);
  // What the window keeps goes to a folder of this run.
  const QTemporaryDir folder;
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
  QApplication::setOrganizationName(QStringLiteral("htr60"));
  QApplication::setApplicationName(QStringLiteral("htr60-tests"));
  QLocale::setDefault(QLocale::c());
  return RUN_ALL_TESTS();
}
