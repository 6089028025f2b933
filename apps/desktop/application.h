#pragma once

#include <QApplication>

namespace htr60::desktop {

/// The application of a program with windows of this view.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;

  /// The last edge: what a handler lets through ends here, and the program goes on.
  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace htr60::desktop
