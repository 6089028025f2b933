#include "desktop/application.h"

#include "desktop/edge.h"

namespace htr60::desktop {

bool Application::notify(QObject* receiver, QEvent* event) {
  return GuardedTakes([&] { return QApplication::notify(receiver, event); });
}

}  // namespace htr60::desktop
