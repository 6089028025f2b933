#include "desktop/window/status_panels.h"

#include <QHBoxLayout>

#include "desktop/edge.h"
#include "desktop/figure/drawings.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr int kPercents[] = {24, 8, 8, 60};

// A label that neither asks for room nor grows: the panels keep their shares whatever they say.
class PanelText final : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }
  QSize sizeHint() const override { return minimumSizeHint(); }
};

}  // namespace

QString ConnectionPicture(std::string_view iconFile) { return ToQt(iconFile.substr(0, iconFile.rfind('.'))); }

StatusPanels::StatusPanels(QWidget* parent) : QFrame(parent), picture_(new QLabel(this)) {
  auto* line = new QHBoxLayout(this);
  const int gap = fontMetrics().height() / 4;
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(0);
  for (std::size_t i = 0; i < std::size(kPercents); ++i) {
    auto* panel = new QFrame(this);
    panel->setFrameShape(QFrame::StyledPanel);
    auto* inside = new QHBoxLayout(panel);
    inside->setContentsMargins(gap, gap / 2, gap, gap / 2);
    inside->setSpacing(gap);
    texts_[i] = new PanelText(panel);
    texts_[i]->setTextFormat(Qt::PlainText);
    texts_[i]->setAccessibleName(ToQt(presentation::kPanelNames[i]));
    if (i == 0) inside->addWidget(picture_);
    inside->addWidget(texts_[i], 1);
    line->addWidget(panel, kPercents[i]);
  }
  picture_->hide();
}

void StatusPanels::Apply(const StatusBar& bar) {
  for (int i = 1; i <= 4; ++i) {
    QLabel* text = texts_[static_cast<std::size_t>(i - 1)];
    const QString now = ToQt(bar.Panel(i).text);
    if (text->text() != now) text->setText(now);
  }
  const std::string& picture = bar.Panel(1).picture;
  if (picture == shownPicture_) return;
  shownPicture_ = picture;
  picture_->setVisible(!picture.empty());
  ShowPicture();
}

void StatusPanels::ShowPicture() {
  if (shownPicture_.empty()) return;
  const QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
  picture_->setPixmap(Drawing(ConnectionPicture(shownPicture_), fontMetrics().height(), devicePixelRatioF(), ink));
}

bool StatusPanels::event(QEvent* event) {
  if (event->type() == QEvent::ScreenChangeInternal) Guarded([this] { ShowPicture(); });
  return QFrame::event(event);
}

void StatusPanels::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Guarded([this] { ShowPicture(); });
}

}  // namespace htr60::desktop
