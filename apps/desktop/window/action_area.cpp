#include "desktop/window/action_area.h"

#include <QHBoxLayout>
#include <utility>

#include "desktop/edge.h"
#include "desktop/figure/tones.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
ActionArea::ActionArea(QWidget* parent)
    : QWidget(parent),
      back_(new QPushButton(tr("&Back"), this)),
      footer_(new QToolButton(this)),
      message_(new QLabel(this)),
      revert_(new QPushButton(ToQt(presentation::kRevertName), this)),
      save_(new QPushButton(tr("&Save"), this)),
      write_(new QPushButton(tr("&Write"), this)) {
  back_->setObjectName(QStringLiteral("cmdBack"));
  save_->setObjectName(QStringLiteral("cmdSave"));
  write_->setObjectName(QStringLiteral("cmdWriteParameter"));
  back_->setToolTip(ToQt(presentation::kBackTip));
  write_->setToolTip(ToQt(presentation::kWriteTip));
  save_->setToolTip(ToQt(presentation::kSaveTip));
  revert_->setObjectName(QStringLiteral("revert"));
  revert_->setToolTip(ToQt(presentation::kRevertTip));
  footer_->setToolTip(ToQt(presentation::kFieldStatesTip));
  footer_->setAccessibleName(ToQt(presentation::kFieldStatesName));
  message_->setAccessibleName(ToQt(presentation::kMessageName));
  footer_->setObjectName(QStringLiteral("footer"));
  using presentation::Spot;
  BearSpot(*back_, ControlId(id::cmdBack));
  BearSpot(*save_, ControlId(id::cmdSave));
  BearSpot(*write_, ControlId(id::cmdWriteParameter));
  BearSpot(*footer_, Spot::Part::kFooter);
  BearSpot(*revert_, Spot::Part::kRevert);
  footer_->setAutoRaise(true);
  footer_->hide();
  for (QPushButton* button : {back_, revert_, save_, write_}) button->setAutoDefault(false);
  message_->setObjectName(QStringLiteral("messageLine"));
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);

  const int gap = fontMetrics().averageCharWidth();
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(gap, gap / 2, gap, gap / 2);
  line->setSpacing(gap);
  line->addWidget(back_);
  line->addWidget(footer_);
  line->addWidget(message_, 1);
  line->addWidget(revert_);
  line->addWidget(save_);
  line->addWidget(write_);

  connect(back_, &QPushButton::clicked, this, &ActionArea::BackPressed);
  connect(revert_, &QPushButton::clicked, this, &ActionArea::RevertPressed);
  connect(write_, &QPushButton::clicked, this, &ActionArea::WritePressed);
  connect(footer_, &QToolButton::clicked, this, &ActionArea::FooterPressed);
}

void ActionArea::Apply(Form& form, const presentation::Screen& screen) {
  const struct {
    QPushButton* shown;
    const Button& button;
  } kButtons[] = {{back_, form.cmdBack}, {save_, form.cmdSave}, {write_, form.cmdWriteParameter}};
  for (const auto& [shown, button] : kButtons) {
    shown->setEnabled(button.Enabled());
    shown->setVisible(button.Visible());
  }
  revert_->setEnabled(screen.revertable > 0);
  SetProminent(screen.unwritten);
  footer_->setText(ToQt(screen.footer));
  footer_->setAccessibleDescription(ToQt(screen.footer));
  footer_->setVisible(!screen.footer.empty());
  const QString message = screen.frame ? ToQt(screen.message) : QString();
  message_->setText(message);
  message_->setAccessibleDescription(message);
}

// Prominent while there is something to write; while disabled it looks as any other.
void ActionArea::SetProminent(bool prominent) {
  if (std::exchange(prominent_, prominent) != prominent) ShowProminence();
}

void ActionArea::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Guarded([this] { ShowProminence(); });
}

void ActionArea::ShowProminence() {
  const QPalette plain = back_->palette();
  QPalette palette = plain;
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    if (!prominent_) break;
    palette.setBrush(group, QPalette::Button, StrongColor(plain));
    palette.setBrush(group, QPalette::ButtonText, plain.brush(QPalette::Active, QPalette::HighlightedText));
  }
  write_->setPalette(palette);
  QFont font = back_->font();
  font.setBold(prominent_);
  write_->setFont(font);
}

}  // namespace htr60::desktop
