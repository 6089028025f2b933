#pragma once

#include <QTreeWidget>
#include <cstdint>
#include <vector>

#include "desktop/core.h"

namespace htr60::desktop {

/// The navigation tree of the form. The arrows move the selection alone; Enter, Space and a click activate.
class TreePanel final : public QTreeWidget {
  Q_OBJECT

 public:
  TreePanel(TreeView& tree, QWidget* parent);
  /// Called where the form has marked the tree.
  void Apply();
  /// What the nodes bear, by their texts. Once a turn.
  void SetMarks(const presentation::TreeMarks& marks);
  /// Width at which no text is cut, in pixels.
  int TextWidth() const;
  /// As narrow as it is meant to be, so that the page has the room.
  QSize sizeHint() const override;
  /// Activates the node at the cursor.
  void ActivateCurrent();
  /// Presses the first node of that text, as a click does; false where the tree has none.
  bool Press(const QString& text);

 Q_SIGNALS:
  /// The operator activates a node: its text and its position in the order of creation, from 1.
  void NodeActivated(const QString& text, int position);

 protected:
  void changeEvent(QEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void Rebuild();
  QTreeWidgetItem* ItemOf(const QString& text) const;
  void ShowAllMarks();
  void ShowMarks(QTreeWidgetItem& item, const TreeNode& node) const;
  void Activate(QTreeWidgetItem* item);

  TreeView& tree_;
  std::uint32_t generation_ = 0;
  std::vector<QTreeWidgetItem*> items_;  // by position, from 1
  std::vector<bool> expanded_;           // the program's own flags when last seen
  presentation::TreeMarks marks_;
};

}  // namespace htr60::desktop
