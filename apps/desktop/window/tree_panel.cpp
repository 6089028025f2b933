#include "desktop/window/tree_panel.h"

#include <QHeaderView>
#include <QScrollBar>

#include "desktop/edge.h"
#include "desktop/figure/drawings.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr int kPosition = Qt::UserRole;

}  // namespace

TreePanel::TreePanel(TreeView& tree, QWidget* parent) : QTreeWidget(parent), tree_(tree) {
  setHeaderHidden(true);
  setAccessibleName(tr("Pages"));
  BearSpot(*this, presentation::Spot::Part::kTree);
  setExpandsOnDoubleClick(false);  // a double click is two activations, and the branch stays as it is
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setIndentation(fontMetrics().averageCharWidth() * 5 / 2);
  const int side = fontMetrics().height();
  setIconSize(QSize(side, side));
  setUniformRowHeights(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  Connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { Activate(item); });
}

void TreePanel::Apply() {
  if (tree_.Generation() != generation_ || items_.size() != tree_.Nodes().size() + 1) Rebuild();
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
}

void TreePanel::Rebuild() {
  generation_ = tree_.Generation();
  clear();
  items_.assign(1, nullptr);
  expanded_.assign(1, false);
  for (const TreeNode& node : tree_.Nodes()) {
    QTreeWidgetItem* item = node.parent == 0 ? new QTreeWidgetItem(this)
                                             : new QTreeWidgetItem(items_.at(static_cast<std::size_t>(node.parent)));
    item->setText(0, ToQt(node.text));
    item->setIcon(0, DrawingIcon(ToQt(node.picture), ToQt(node.selectedPicture), iconSize().height()));
    item->setData(0, kPosition, static_cast<int>(items_.size()));
    items_.push_back(item);
    expanded_.push_back(node.expanded);
  }
  expandAll();  // for the operator; the program's own flags stay as they are
  updateGeometry();
}

int TreePanel::TextWidth() const {
  return sizeHintForColumn(0) + 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
}

bool TreePanel::Press(const QString& text) {
  for (QTreeWidgetItem* item : items_) {
    if (item == nullptr || item->text(0) != text) continue;
    setFocus(Qt::MouseFocusReason);
    setCurrentItem(item);
    Activate(item);
    return true;
  }
  return false;
}

void TreePanel::ActivateCurrent() { Activate(currentItem()); }

void TreePanel::Activate(QTreeWidgetItem* item) {
  if (item == nullptr) return;
  // Activating may rebuild the tree: the item is not touched after the signal.
  Q_EMIT NodeActivated(item->text(0), item->data(0, kPosition).toInt());
}

}  // namespace htr60::desktop
