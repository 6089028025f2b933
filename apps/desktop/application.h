#pragma once

#include <QApplication>

namespace htr60::desktop {

/// The application of a program with windows of this view.
class Application final : public QApplication {
 public:
  Application(int& argc, char** argv);

  /// One of `PaletteNames`, in place of the system's; empty: the system's.
  void UsePalette(const QString& name);
  /// The last edge: what a handler lets through ends here, and the program goes on.
  bool notify(QObject* receiver, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;

 private:
  void SetPalette();

  QString palette_;
  bool setting_ = false;
};

}  // namespace htr60::desktop
