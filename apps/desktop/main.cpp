#include <QApplication>
#include <QDir>
#include <QTextStream>
#include <QTimer>
#include <cstdio>
#include <memory>

#include "desktop/application.h"
#include "desktop/desktop_host.h"
#include "desktop/main_window.h"
#include "desktop/options.h"
#include "desktop/tour.h"

namespace {

using htr60::desktop::DesktopHost;
using htr60::desktop::MainWindow;
using htr60::desktop::Options;
using htr60::desktop::Tour;

/// One transmitter and the window before it.
struct Session {
  Session(const htr60::sim::Settings& settings, MainWindow::Places places) : host(settings), window(host, places) {
    window.setAttribute(Qt::WA_DeleteOnClose, false);
  }
  DesktopHost host;
  MainWindow window;
};

/// The sessions of one run: another transmitter means another session.
class Sessions {
 public:
  void Begin(const Options& options) {
    auto next = std::make_unique<Session>(LoadSettings(options), MainWindow::Places::kKept);
    QObject::connect(&next->window, &MainWindow::TransmitterWanted, &next->window, [this](const QString& preset) {
      // Not within the signal: its sender goes with the session.
      QTimer::singleShot(0, qApp, [this, preset] { Begin({.preset = preset}); });
    });
    if (now_ != nullptr) now_->window.close();
    if (now_ != nullptr) next->window.setGeometry(now_->window.geometry());
    next->window.show();
    now_ = std::move(next);
  }

 private:
  std::unique_ptr<Session> now_;
};

int RunTour(QApplication& application, const Options& options) {
  if (!QDir().mkpath(options.tour)) {
    QTextStream(stderr) << "htr60: " << options.tour << " cannot be made" << Qt::endl;
    return 2;
  }
  Session session(LoadSettings(options), MainWindow::Places::kFresh);
  Tour tour(session.window, session.host.Control(), htr60::desktop::TourSteps(), QDir(options.tour));
  int exitCode = 0;
  QObject::connect(&tour, &Tour::Finished, &application, [&](int code) {
    exitCode = code;
    application.quit();
  });
  session.window.show();
  tour.Start();
  application.exec();
  return exitCode;
}

// The tour needs no screen: without one it is rendered in memory.
void ChoosePlatform(const Options& options) {
  const bool screen = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
  if (!options.tour.isEmpty() && !screen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    const Options options = htr60::desktop::ReadOptions(arguments);
    if (!options.say.isEmpty()) {
      QTextStream(stdout) << options.say << Qt::flush;
      return 0;
    }
    ChoosePlatform(options);
    LoadSettings(options);  // what is wrong with them is said before a window opens
    htr60::desktop::Application application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("htr60"));
    QApplication::setApplicationName(QStringLiteral("htr60"));
    if (!options.tour.isEmpty()) return RunTour(application, options);
    Sessions sessions;
    sessions.Begin(options);
    return QApplication::exec();
  } catch (const htr60::desktop::OptionError& error) {
    QTextStream(stderr) << "htr60: " << QString::fromUtf8(error.what()) << Qt::endl;
    return 2;
  }
}
