#include "desktop/window/live_region.h"

#include <QAccessible>

#include "desktop/qt_text.h"

namespace htr60::desktop {

LiveRegion::LiveRegion(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("liveRegion"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(0, 0, 1, 1);  // what is hidden is not told of
}

void LiveRegion::Announce(const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    setAccessibleName(ToQt(text));
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace htr60::desktop
