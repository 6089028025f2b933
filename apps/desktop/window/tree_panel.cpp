#include "desktop/window/tree_panel.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

#include "desktop/edge.h"
#include "desktop/figure/drawings.h"
#include "desktop/figure/shapes.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr int kFirstWidth = 200;  // units of 1/96 inch
constexpr int kPosition = Qt::UserRole;
constexpr int kOpen = Qt::UserRole + 1;
constexpr int kUnwritten = Qt::UserRole + 2;

QString TextOf(const QTreeWidgetItem* item) { return item == nullptr ? QString() : item->text(0); }

}  // namespace

TreePanel::TreePanel(TreeView& tree, QWidget* parent) : QTreeWidget(parent), tree_(tree) {
  setHeaderHidden(true);
  setAccessibleName(ToQt(presentation::kTreeName));
  BearSpot(*this, presentation::Spot::Part::kTree);
  setExpandsOnDoubleClick(false);  // a double click is two activations, and the branch stays as it is
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setIndentation(fontMetrics().averageCharWidth() * 2);
  const int side = fontMetrics().height();
  setIconSize(QSize(side, side));
  setUniformRowHeights(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  Connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { Activate(item); });
}

void TreePanel::Apply() {
  const bool anew = tree_.Generation() != generation_ || items_.size() != tree_.Nodes().size() + 1;
  const QString top = TextOf(itemAt(0, 0));
  const int place = verticalScrollBar()->value();
  if (anew) Rebuild();
  int selected = 0;
  for (std::size_t i = 0; i < tree_.Nodes().size(); ++i) {
    const TreeNode& node = tree_.Nodes()[i];
    QTreeWidgetItem* item = items_[i + 1];
    if (node.expanded && !expanded_[i + 1]) item->setExpanded(true);
    expanded_[i + 1] = node.expanded;
    if (node.selected) selected = static_cast<int>(i) + 1;
  }
  // The arrows may have moved the operator's selection meanwhile: the program's comes back with every activation.
  if (selected != 0) setCurrentItem(items_[static_cast<std::size_t>(selected)]);
  if (!anew) return;
  // Last, for a cursor that is set scrolls to itself. A node that is gone leaves its place.
  QTreeWidgetItem* const item = ItemOf(top);
  item != nullptr ? scrollToItem(item, PositionAtTop) : verticalScrollBar()->setValue(place);
}

// The cursor stays by its text.
void TreePanel::Rebuild() {
  const QString cursor = TextOf(currentItem());
  generation_ = tree_.Generation();
  clear();
  items_.assign(1, nullptr);
  expanded_.assign(1, false);
  for (const TreeNode& node : tree_.Nodes()) {
    QTreeWidgetItem* item = node.parent == 0 ? new QTreeWidgetItem(this)
                                             : new QTreeWidgetItem(items_.at(static_cast<std::size_t>(node.parent)));
    item->setText(0, ToQt(node.text));
    item->setData(0, kPosition, static_cast<int>(items_.size()));
    ShowMarks(*item, node);
    items_.push_back(item);
    expanded_.push_back(node.expanded);
  }
  expandAll();  // for the operator; the program's own flags stay as they are
  if (QTreeWidgetItem* item = ItemOf(cursor)) setCurrentItem(item);
  updateGeometry();
}

QTreeWidgetItem* TreePanel::ItemOf(const QString& text) const {
  for (QTreeWidgetItem* item : items_) {
    if (item != nullptr && item->text(0) == text) return item;
  }
  return nullptr;
}

// ---- marks

void TreePanel::SetMarks(const presentation::TreeMarks& marks) {
  if (marks == marks_) return;
  marks_ = marks;
  ShowAllMarks();
}

void TreePanel::ShowAllMarks() {
  for (std::size_t i = 1; i < items_.size() && i <= tree_.Nodes().size(); ++i) {
    ShowMarks(*items_[i], tree_.Nodes()[i - 1]);
  }
}

void TreePanel::ShowMarks(QTreeWidgetItem& item, const TreeNode& node) const {
  const bool open = node.text == marks_.open;
  const bool unwritten =
      std::find(marks_.unwritten.begin(), marks_.unwritten.end(), node.text) != marks_.unwritten.end();
  item.setIcon(0, ItemIcon(ToQt(open ? node.selectedPicture : node.picture), iconSize().height(), palette()));
  item.setData(0, kOpen, open);
  item.setData(0, kUnwritten, unwritten);
  QStringList words;
  if (open) words << ToQt(presentation::kOpenNodeMark);
  if (unwritten) words << ToQt(presentation::kUnwrittenNodeMark);
  item.setData(0, Qt::AccessibleDescriptionRole, words.join(QStringLiteral(", ")));
}

void TreePanel::changeEvent(QEvent* event) {
  QTreeWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Guarded([this] { ShowAllMarks(); });
}

// A bar at the tree's edge beside the open node, the pencil after the text of one that is not written.
void TreePanel::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QTreeWidget::drawRow(painter, option, index);
  Guarded([&] {
    const int gap = fontMetrics().averageCharWidth() / 2;
    if (index.data(kOpen).toBool()) {
      const QRect bar(0, option.rect.top(), std::max(3, gap), option.rect.height());
      painter->fillRect(bar, palette().color(QPalette::Text));
    }
    if (!index.data(kUnwritten).toBool()) return;
    const int side = fontMetrics().ascent();
    const QRect row = visualRect(index);
    const int x = row.left() + iconSize().width() + 3 * gap + fontMetrics().horizontalAdvance(index.data().toString());
    PaintShape(*painter, QRectF(x + gap + 0.5, row.center().y() - side / 2 + 0.5, side - 1, side - 1),
               desktop::Shape::kPencil, palette());
  });
}

// ---- the operator

int TreePanel::TextWidth() const {
  const int pencil = fontMetrics().ascent() + 2 * fontMetrics().averageCharWidth();
  const int bar = verticalScrollBar()->isVisible() ? verticalScrollBar()->sizeHint().width() : 0;
  return sizeHintForColumn(0) + pencil + 2 * frameWidth() + bar;
}

QSize TreePanel::sizeHint() const { return {Pixels(*this, kFirstWidth), QTreeWidget::sizeHint().height()}; }

bool TreePanel::Press(const QString& text) {
  QTreeWidgetItem* item = ItemOf(text);
  if (item == nullptr) return false;
  setFocus(Qt::MouseFocusReason);
  setCurrentItem(item);
  Activate(item);
  return true;
}

void TreePanel::ActivateCurrent() { Activate(currentItem()); }

void TreePanel::Activate(QTreeWidgetItem* item) {
  if (item == nullptr) return;
  // Activating may rebuild the tree: the item is not touched after the signal.
  Q_EMIT NodeActivated(item->text(0), item->data(0, kPosition).toInt());
}

}  // namespace htr60::desktop
