#include "desktop/page/page_bar.h"

#include <QHBoxLayout>

#include "desktop/edge.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {

PageBar::PageBar(QWidget* parent) : QFrame(parent), text_(new QLabel(this)) {
  setObjectName(QStringLiteral("pageBar"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  text_->setForegroundRole(QPalette::ToolTipText);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  const int gap = fontMetrics().averageCharWidth();
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(gap, gap / 2, gap, gap / 2);
  line->setSpacing(gap);
  line->addWidget(text_, 1);
  hide();
}

void PageBar::Apply(const std::optional<presentation::ScreenBar>& bar) {
  if (!bar) {
    if (isHidden()) return;
    hide();
    captions_.clear();
    return;
  }
  text_->setText(ToQt(bar->text));
  setAccessibleName(text_->text());
  if (bar->buttons == captions_) return;
  MakeButtons(bar->buttons);
  show();
}

void PageBar::MakeButtons(const std::vector<std::string>& captions) {
  for (QPushButton* button : buttons_) {
    button->hide();
    button->deleteLater();
  }
  buttons_.clear();
  captions_ = captions;
  for (const std::string& caption : captions) {
    auto* button = new QPushButton(ToQt(caption), this);
    button->setAutoDefault(false);
    button->setAccessibleDescription(text_->text());
    layout()->addWidget(button);
    const int number = static_cast<int>(buttons_.size());
    BearSpot(*button, presentation::Spot::BarButton(buttons_.size()));
    Connect(button, &QPushButton::clicked, this, [this, number] { Q_EMIT Answered(number); });
    buttons_.push_back(button);
    button->show();
  }
}

}  // namespace htr60::desktop
