#include <QDir>
#include <exception>
#include <memory>
#include <utility>

#include "desktop/application.h"
#include "desktop/options.h"
#include "desktop/standard_streams.h"
#include "desktop/start.h"
#include "desktop/tour/tour.h"
#include "desktop/window/session.h"

namespace {

using htr60::desktop::Application;
using htr60::desktop::Complain;
using htr60::desktop::MainWindow;
using htr60::desktop::Options;
using htr60::desktop::Session;
using htr60::desktop::Sessions;
using htr60::desktop::SetToolkitTells;
using htr60::desktop::SteppedClock;
using htr60::desktop::ToolkitTells;
using htr60::desktop::Tour;

constexpr int kCannotStart = 2;

int RunTour(Application& application, const Options& options, const htr60::sim::Settings& settings) {
  if (!QDir().mkpath(options.tour)) {
    Complain(options.tour.toStdString() + " cannot be made");
    return kCannotStart;
  }
  auto clock = std::make_unique<SteppedClock>();
  SteppedClock& time = *clock;
  Session session(std::move(clock), settings, options.preset, MainWindow::Places::kFresh);
  Tour tour(session.window, time, session.host.Control(), htr60::desktop::TourSteps(), QDir(options.tour),
            htr60::desktop::Print);
  int exitCode = 0;
  QObject::connect(&tour, &Tour::Finished, &application, [&](int code) {
    exitCode = code;
    Application::exit(code);  // whatever the tour has left unwritten
  });
  session.window.show();
  tour.Start();
  application.exec();
  if (!tour.NotWritten().isEmpty()) Complain(tour.NotWritten().toStdString());
  return exitCode;
}

// The tour needs no screen: without one it is rendered in memory.
void ChoosePlatform(const Options& options) {
  const bool screen = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
  if (!options.tour.isEmpty() && !screen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
}

int Run(const Options& options, const htr60::sim::Settings& settings, Application& application) {
  SetToolkitTells(options.tour.isEmpty() ? ToolkitTells::kAll : ToolkitTells::kNothing);
  Application::setOrganizationName(QStringLiteral("htr60"));
  Application::setApplicationName(QStringLiteral("htr60"));
  application.UsePalette(options.colours);
  if (!options.tour.isEmpty()) return RunTour(application, options, settings);
  Sessions sessions;
  sessions.Begin(settings, options.preset);
  return Application::exec();
}

int Start(int& argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  const Options options = htr60::desktop::ReadOptions(arguments);
  if (!options.say.isEmpty()) {
    if (htr60::desktop::Print(options.say.toStdString())) return 0;
    Complain("standard output cannot be written to");
    return 1;
  }
  ChoosePlatform(options);
  const htr60::sim::Settings settings = LoadSettings(options);  // what is wrong is said before a window opens
  SetToolkitTells(ToolkitTells::kNothingAtStart);
  Application application(argc, argv);
  return Run(options, settings, application);
}

}  // namespace

int main(int argc, char** argv) {
  htr60::desktop::SecureStandardStreams();
  try {
    return Start(argc, argv);
  } catch (const std::exception& error) {  // mostly an OptionError
    Complain(error.what());
    if (!htr60::desktop::WantsWindow()) return kCannotStart;
    SetToolkitTells(ToolkitTells::kNothingAtStart);
    const Application application(argc, argv);
    htr60::desktop::ShowComplaint(QString::fromUtf8(error.what()));
    return kCannotStart;
  }
}
