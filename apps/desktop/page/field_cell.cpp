#include "desktop/page/field_cell.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QToolTip>
#include <utility>

#include "desktop/edge.h"
#include "desktop/figure/tones.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"
#include "form/control_names.h"
#include "text/numbers.h"

namespace htr60::desktop {
namespace {

constexpr int kTightCharacters = 8;
constexpr int kMostTight = 28;  // longer texts are statuses
// Values to be read from two metres: digits of 5 mm, and as many of them as a value has.
constexpr double kLargeText = 1.9;
constexpr int kLargeShare = 10;  // of 16 characters

bool ReadsLikeANumber(PageContext context, std::string_view text) {
  return FindLocaleNumber(text, context.control.codecs.DecimalSeparator()).has_value();
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
  if (tight && width.characters <= kMostTight) width.least = kTightCharacters;
  if (row_.large) width.characters = width.characters * kLargeShare / 16;
  width.digits = row_.large;
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
  if (control_) {
    widget_->setObjectName(QString::fromStdString(NameOf(control_)));
    BearSpot(*widget_, control_);
  }
  widget_->installEventFilter(this);
  FollowFont(parent->font());
}

void FieldCell::FollowFont(const QFont& page) {
  if (!row_.large) return;
  QFont font = page;
  if (page.pointSizeF() > 0) {
    font.setPointSizeF(page.pointSizeF() * kLargeText);
  } else {
    font.setPixelSize(static_cast<int>(page.pixelSize() * kLargeText));
  }
  widget_->setFont(font);
  if (shape_ != nullptr && kind_ != RowKind::kValue) shape_->setFont(font);  // a value has none to show: it aligns
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
          [this, field](const QString& text) { context_.presented.Type(field, ToUtf8(text)); });
  entry->OnPaste([this, field](const QString& text) {
    return GuardedTakes([&] { return context_.presented.PasteColumns(field, ToUtf8(text)); });
  });
}

void FieldCell::MakeChoice(FieldWidth width, QWidget* parent) {
  widget_ = new ChoiceField(context_.presented.Keys(), control_, width, parent);
}

void FieldCell::MakeButton(QWidget* parent) {
  auto* button = new QPushButton(parent);
  button->setAutoDefault(false);
  button->setAccessibleDescription(ToQt(row_.note));
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
    case RowKind::kList:
      static_cast<ChoiceField*>(widget_)->Show(Text());
      break;
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
      static_cast<QPushButton*>(widget_)->setText(WithMnemonic(ToUtf8(own.isEmpty() ? caption_ : own), mnemonic_));
      break;
    }
    default: {
      auto* entry = static_cast<TextEntry*>(widget_);
      const bool label = kind_ == RowKind::kLabel;
      const bool number = label ? ReadsLikeANumber(context_, ToUtf8(Text())) : kind_ == RowKind::kValue;
      entry->Show(Text(), number);
      if (label) entry->setAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
      break;
    }
  }
  RefreshState();
}

void FieldCell::RefreshState() {
  if (shape_ == nullptr || !control_) return;
  const presentation::ScreenRow* row = context_.presented.Row(control_);
  static const presentation::ScreenRow kUnseen;
  if (row == nullptr) row = &kUnseen;
  Shape shape = Shape::kNone;
  std::string_view name;
  if (row->state && (shape = ShapeOf(*row->state)) != Shape::kNone) name = presentation::NameOf(*row->state);
  if (shape == Shape::kNone && (shape = ShapeOf(row->mark)) != Shape::kNone) name = presentation::NameOf(row->mark);
  const QString words = ToQt(row->words);
  const QString hint = ToQt(row->hint);
  const bool same = described_ && shape == shape_->Current() && words == words_ && hint == hint_;
  words_ = words;
  hint_ = hint;
  shape_->SetShape(shape, name);
  if (row != &kUnseen) {
    const QString fieldName = ToQt(row->name);
    if (widget_->accessibleName() != fieldName) widget_->setAccessibleName(fieldName);
    SetPale(row->pale);
  }
  if (same) return;
  described_ = true;
  widget_->setAccessibleDescription(ToQt(presentation::DescriptionOf(*row, presentation::NoteOf(row_, control_))));
}

void FieldCell::SetPale(bool pale) {
  if (std::exchange(pale_, pale) != pale) ShowPale();
}

// What is stale is pale, and still to be read and copied.
void FieldCell::ShowPale() {
  QPalette palette = widget_->palette();
  const QPalette plain = QApplication::palette(widget_);
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    for (const auto& [role, ground] :
         {std::pair(QPalette::Text, QPalette::Base), std::pair(QPalette::WindowText, QPalette::Window)}) {
      palette.setColor(group, role, pale_ ? PaleColor(plain, ground) : plain.color(group, role));
    }
  }
  widget_->setPalette(palette);
}

void FieldCell::SetCaption(const QString& caption) { caption_ = caption; }

void FieldCell::SetMnemonic(char letter) {
  if (std::exchange(mnemonic_, letter) != letter) Refresh();
}

QString FieldCell::ToolTip() const {
  const presentation::ScreenRow* row = control_ ? context_.presented.Row(control_) : nullptr;
  if (row == nullptr) return ToQt(row_.note);  // a button
  const auto* entry = qobject_cast<TextEntry*>(widget_);
  const auto* choice = qobject_cast<ChoiceField*>(widget_);
  const presentation::CutOff cutOff{
      .text = (entry != nullptr && entry->CutOff()) || (choice != nullptr && choice->CutOff()),
      .words = wordsFit_ && !wordsFit_()};
  return ToQt(presentation::ToolTipOf(*row, presentation::NoteOf(row_, control_), cutOff));
}

std::unique_ptr<QMenu> FieldCell::MakeMenu() {
  auto menu = std::make_unique<QMenu>(widget_);
  for (const presentation::FieldMenuItem& item : context_.presented.Menu(control_)) {
    QAction* action = menu->addAction(ToQt(item.caption).replace(u'&', QStringLiteral("&&")));
    action->setEnabled(item.enabled);
    Connect(action, &QAction::triggered, this, [this, act = item.act] { Run(act); });
  }
  for (const presentation::FieldAddition& addition : context_.presented.Additions(control_)) {
    QAction* action = menu->addAction(ToQt(addition.caption));
    action->setEnabled(addition.enabled);
    if (addition.run) Connect(action, &QAction::triggered, this, [run = addition.run] { run(); });
  }
  return menu;
}

void FieldCell::Run(presentation::FieldAct act) {
  auto* entry = qobject_cast<TextEntry*>(widget_);
  switch (act) {
    case presentation::FieldAct::kCopy:
      if (entry != nullptr) return entry->Copy();
      if (auto* list = qobject_cast<ReadList*>(widget_)) return list->Copy();
      return QApplication::clipboard()->setText(Text());
    case presentation::FieldAct::kPaste:
      if (entry != nullptr) entry->Paste();
      return;
    case presentation::FieldAct::kPutBack:
      context_.presented.PutBack(control_);
      return;
  }
}

bool FieldCell::ShowMenu(QPoint at) {
  if (IsButton() || !control_) return false;
  const std::unique_ptr<QMenu> menu = MakeMenu();
  if (!menu->isEmpty()) menu->exec(at);
  return true;
}

bool FieldCell::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange && pale_) Guarded([this] { ShowPale(); });
  if (event->type() == QEvent::ContextMenu) {
    const QPoint at = static_cast<QContextMenuEvent*>(event)->globalPos();
    if (GuardedTakes([&] { return ShowMenu(at); })) return true;
  }
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
