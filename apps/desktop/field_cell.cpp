#include "desktop/field_cell.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

#include "desktop/edge.h"
#include "desktop/mnemonics.h"
#include "desktop/number_hints.h"
#include "desktop/qt_text.h"
#include "form/control_names.h"
#include "text/failure.h"

namespace htr60::desktop {
namespace {

constexpr int kTightCharacters = 8;

bool ReadsLikeANumber(PageContext context, std::string_view text) {
  try {
    context.control.codecs.ParseLocaleNumber(text);
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

}  // namespace

FieldCell::FieldCell(PageContext context, const LayoutRow& row, bool second, int numberWidth, bool tight,
                     QWidget* parent)
    : QObject(parent),
      context_(context),
      row_(row),
      kind_(second ? row.secondKind : row.kind),
      control_(second ? row.second : row.control) {
  FieldWidth width = FieldWidth::Of(kind_, second ? row.secondWidth : row.width, numberWidth);
  if (tight) width.least = kTightCharacters;
  if (!IsButton()) shape_ = new ShapeSlot(parent);
  switch (kind_) {
    case RowKind::kList:
      MakeChoice(width, parent);
      break;
    case RowKind::kListBox:
      widget_ = new ReadList(width, parent);
      break;
    case RowKind::kMsg:
    case RowKind::kFixed: {
      auto* label = new PlainLabel({}, parent);
      label->setWordWrap(kind_ == RowKind::kMsg);
      widget_ = label;
      break;
    }
    case RowKind::kOpen:
    case RowKind::kWrite:
      MakeButton(parent);
      break;
    default:
      MakeEntry(width, parent);
      break;
  }
  if (control_) widget_->setObjectName(QString::fromStdString(NameOf(control_)));
  widget_->installEventFilter(this);
}

void FieldCell::MakeEntry(FieldWidth width, QWidget* parent) {
  const bool typed = kind_ == RowKind::kEdit || kind_ == RowKind::kNum;
  auto* entry = new TextEntry(width, !typed, parent);
  widget_ = entry;
  if (kind_ == RowKind::kNum || kind_ == RowKind::kValue) entry->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (!typed) return;
  const TextId field{control_};
  if (const int longest = context_.control.form.At(field).MaxLength(); longest > 0) entry->setMaxLength(longest);
  if (IsPassword()) {
    entry->setEchoMode(QLineEdit::Password);
    entry->setStyleSheet(QStringLiteral("lineedit-password-character: 42"));
  }
  Connect(entry, &QLineEdit::textEdited, this,
          [this, field](const QString& text) { context_.states.Type(field, ToUtf8(text)); });
  connect(entry, &TextEntry::PastedCells, this, &FieldCell::PastedCells);
  Connect(entry, &TextEntry::Entered, this, [this] {
    if (row_.enterPresses) {
      Q_EMIT Pressed(row_.enterPresses);
    } else {
      Q_EMIT Entered();
    }
  });
}

void FieldCell::MakeChoice(FieldWidth width, QWidget* parent) {
  auto* choice = new ChoiceField(width, parent);
  widget_ = choice;
  Connect(choice, &ChoiceField::Picked, this,
          [this](int row) { context_.states.Pick(ChoiceId{control_}, static_cast<std::size_t>(row)); });
  connect(choice, &ChoiceField::Entered, this, &FieldCell::Entered);
}

void FieldCell::MakeButton(QWidget* parent) {
  auto* button = new PageButton(kind_ == RowKind::kWrite, parent);
  button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  widget_ = button;
  Connect(button, &QPushButton::clicked, this, [this] { Q_EMIT Pressed(ButtonId{control_}); });
}

bool FieldCell::CanBeTypedIn() const { return kind_ == RowKind::kEdit || kind_ == RowKind::kNum; }

bool FieldCell::Shows() const { return !control_ || context_.control.form.Any(control_).Visible(); }

QString FieldCell::Text() const { return control_ ? ToQt(context_.control.form.TextOf(control_)) : QString(); }

void FieldCell::Refresh() {
  Form& form = context_.control.form;
  if (control_) widget_->setEnabled(form.Any(control_).Enabled());
  switch (kind_) {
    case RowKind::kList: {
      const ChoiceList& list = form.At(ChoiceId{control_});
      static_cast<ChoiceField*>(widget_)->Show(ToQt(list.Text()), list.Rows());
      break;
    }
    case RowKind::kListBox:
      static_cast<ReadList*>(widget_)->Show(Role(), form.At(ListBoxId{control_}).Rows());
      break;
    case RowKind::kMsg:
    case RowKind::kFixed:
      static_cast<QLabel*>(widget_)->setText(control_ ? Text() : caption_);
      break;
    case RowKind::kOpen:
    case RowKind::kWrite: {
      const QString own = Text();
      static_cast<QPushButton*>(widget_)->setText(WithMnemonic(own.isEmpty() ? caption_ : own, mnemonic_));
      break;
    }
    default: {
      auto* entry = static_cast<TextEntry*>(widget_);
      entry->Show(Text());
      if (kind_ == RowKind::kLabel) {
        const bool number = ReadsLikeANumber(context_, ToUtf8(Text()));
        entry->setAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
      }
      break;
    }
  }
  RefreshState();
}

void FieldCell::RefreshState() {
  if (shape_ == nullptr || !control_) return;
  const std::string text(context_.control.form.TextOf(control_));
  const bool marked = context_.control.form.Any(control_).Enabled() && !IsPassword();
  const FieldState state = marked ? context_.states.Of(control_) : FieldState::kAsRead;
  words_ = marked ? QString::fromStdString(context_.states.Words(control_)) : QString();
  alert_ = state == FieldState::kDiffers || state == FieldState::kReplaced;
  hint_.clear();
  if (marked && kind_ == RowKind::kNum && context_.states.ReadOrEdited(control_)) {
    hint_ = QString::fromStdString(NumberHint(text, context_.control.codecs.DecimalSeparator()));
  }
  const Shape shape = ShapeOf(state);
  const Shape before = shape_->Current();
  shape_->SetShape(shape == Shape::kNone ? ShapeOfStatus(Role(), kind_, text) : shape);
  QStringList marks;
  if (!words_.isEmpty()) marks << words_;
  if (!hint_.isEmpty()) marks << hint_;
  const QString description = marks.join(QStringLiteral("; "));
  if (widget_->accessibleDescription() != description) widget_->setAccessibleDescription(description);
  if (shape_->Current() == Shape::kFault && before != Shape::kFault && kind_ == RowKind::kMsg) {
    QAccessibleEvent alert(widget_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }
}

void FieldCell::SetCaption(const QString& name, const QString& caption) {
  caption_ = caption;
  if (widget_->accessibleName() != name) widget_->setAccessibleName(name);
}

void FieldCell::SetMnemonic(QChar letter) {
  mnemonic_ = letter;
  Refresh();
}

QString FieldCell::ToolTip() const {
  if (IsPassword()) return {};
  QStringList lines;
  if (const auto* entry = qobject_cast<TextEntry*>(widget_); entry != nullptr && entry->CutOff()) lines << Text();
  if (const auto* choice = qobject_cast<ChoiceField*>(widget_); choice != nullptr && choice->CutOff()) lines << Text();
  if (wordsFit_ && !wordsFit_()) {
    if (!words_.isEmpty()) lines << words_;
    if (!hint_.isEmpty()) lines << hint_;
  }
  return lines.join(u'\n');
}

bool FieldCell::eventFilter(QObject* watched, QEvent* event) {
  const bool taken = event->type() == QEvent::ToolTip && GuardedTakes([&] {
                       const QString text =
                           ToolTip().toHtmlEscaped().replace(QStringLiteral("\n"), QStringLiteral("<br>"));
                       if (text.isEmpty()) return false;
                       QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, widget_);
                       return true;
                     });
  if (taken) return true;
  return QObject::eventFilter(watched, event);
}

}  // namespace htr60::desktop
