#include "desktop/window/identification_strip.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <algorithm>
#include <iterator>

#include "desktop/edge.h"
#include "desktop/figure/drawings.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using presentation::kIdentityParts;

/// Characters that are left at least of the tag and the health, and of all else.
struct Least {
  int chief;
  int other;
};
// From a wide window to the narrowest: a badge is never cut, for it tells what not to trust.
constexpr Least kLeast[] = {{24, 8}, {16, 4}, {8, 2}, {3, 1}};

}  // namespace

CopyLabel::CopyLabel(QWidget* parent) : FittedText(parent) {
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CopyLabel::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(tr("Copy"), this, [this] { QApplication::clipboard()->setText(FullText()); });
  menu.exec(event->globalPos());
}

HealthButton::HealthButton(QWidget* parent) : FittedText(parent) {
  setAutoRaise(true);
  setFocusPolicy(Qt::NoFocus);  // the tree leads there by keyboard
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

IdentificationStrip::IdentificationStrip(QWidget* parent)
    : QFrame(parent), padlock_(new QLabel(this)), healthShape_(new ShapeSlot(this)), health_(new HealthButton(this)) {
  setFrameShape(QFrame::NoFrame);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  const int gap = fontMetrics().averageCharWidth();
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(gap, gap / 2, gap, gap / 2);
  line->setSpacing(gap);

  QFont bold = font();
  bold.setBold(true);
  for (QLabel*& badge : badges_) {
    badge = new QLabel(this);
    badge->setFrameShape(QFrame::Box);
    badge->setContentsMargins(gap / 2, 1, gap / 2, 1);
    badge->setTextFormat(Qt::PlainText);
    badge->setFont(bold);
    badge->hide();
    line->addWidget(badge);
  }
  badges_.front()->setObjectName(QStringLiteral("simulated"));

  ShowPadlock();
  padlock_->setAccessibleName(ToQt(presentation::kPadlockName));
  padlock_->hide();
  for (std::size_t i = 0; i < kIdentityParts.size(); ++i) {
    AddBar(*line);
    if (i == presentation::kLockPart) line->addWidget(padlock_);
    auto* label = new CopyLabel(this);
    if (i == presentation::kTagPart) label->setFont(bold);
    line->addWidget(label);
    labels_.push_back(label);
  }
  line->addStretch(1);
  health_->setObjectName(QStringLiteral("health"));
  health_->setAccessibleName(ToQt(presentation::kHealthName));
  Connect(health_, &HealthButton::clicked, this, [this] { Q_EMIT HealthPressed(); });
  line->addWidget(healthShape_);
  line->addWidget(health_);
}

void IdentificationStrip::ShowPadlock() {
  const QColor ink = palette().color(QPalette::Active, QPalette::Text);
  padlock_->setPixmap(Drawing(QStringLiteral("padlock"), fontMetrics().height(), devicePixelRatioF(), ink));
}

bool IdentificationStrip::event(QEvent* event) {
  if (event->type() == QEvent::ScreenChangeInternal) Guarded([this] { ShowPadlock(); });
  return QFrame::event(event);
}

void IdentificationStrip::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Guarded([this] { ShowPadlock(); });
}

void IdentificationStrip::AddBar(QHBoxLayout& line) {
  auto* bar = new QFrame(this);
  bar->setFrameShape(QFrame::VLine);
  bar->setForegroundRole(QPalette::Mid);
  line.addWidget(bar);
}

void IdentificationStrip::Apply(const presentation::Screen& screen, const QString& healthTip) {
  for (std::size_t i = 0; i < badges_.size(); ++i) {
    const bool stands = i < screen.badges.size();
    if (stands) badges_[i]->setText(ToQt(screen.badges[i]));
    badges_[i]->setVisible(stands);
  }
  for (std::size_t i = 0; i < labels_.size() && i < screen.identity.size(); ++i) {
    const QString text = ToQt(screen.identity[i]);
    const QString name = ToQt(kIdentityParts[i].name);
    CopyLabel* label = labels_[i];
    label->SetFullText(text.isEmpty() ? tr("%1: not read").arg(name) : ToQt(kIdentityParts[i].prefix) + text);
    label->setToolTip(text.isEmpty() ? QString() : name + QStringLiteral(": ") + text);
    label->setAccessibleName(name);
    label->setAccessibleDescription(text.isEmpty() ? tr("not read") : text);
  }
  tag_ = ToQt(screen.identity[presentation::kTagPart]);
  padlock_->setVisible(screen.identity[presentation::kLockPart] == presentation::kLocked);
  health_->SetFullText(ToQt(screen.healthText));
  health_->setAccessibleDescription(ToQt(screen.healthText));
  health_->setToolTip(healthTip);
  healthShape_->SetShape(ShapeOf(screen.health), presentation::NameOf(screen.health));
  Fit();
}

// Found first and then set once: what is set anew asks for the places of all, at every turn.
void IdentificationStrip::Fit() {
  const auto of = [](std::size_t part, const Least& least) {
    return part == presentation::kTagPart ? least.chief : least.other;
  };
  int fixed = layout()->totalMinimumSize().width() - health_->minimumSizeHint().width();
  for (const CopyLabel* label : labels_) fixed -= label->minimumSizeHint().width();
  const auto fits = [&](const Least& least) {
    int needed = fixed + health_->WidthOfLeast(least.chief);
    for (std::size_t i = 0; i < labels_.size(); ++i) needed += labels_[i]->WidthOfLeast(of(i, least));
    return needed <= width();
  };
  const auto* found = std::find_if(std::begin(kLeast), std::prev(std::end(kLeast)), fits);
  for (std::size_t i = 0; i < labels_.size(); ++i) labels_[i]->SetLeast(of(i, *found));
  health_->SetLeast(found->chief);
}

void IdentificationStrip::resizeEvent(QResizeEvent* event) {
  Guarded([this] { Fit(); });
  QFrame::resizeEvent(event);
}

QString IdentificationStrip::Tag() const { return tag_; }

QStringList IdentificationStrip::Texts() const {
  QStringList texts;
  for (const CopyLabel* label : labels_) texts << label->FullText();
  return texts;
}

}  // namespace htr60::desktop
